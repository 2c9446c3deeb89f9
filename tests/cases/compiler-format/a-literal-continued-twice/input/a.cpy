       01  A PIC X(81) VALUE   "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx
      -                        "yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy
      -    "z".
