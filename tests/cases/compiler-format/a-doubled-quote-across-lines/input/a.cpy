       01  A PIC X(41) VALUE   "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"
      -    ""y".
