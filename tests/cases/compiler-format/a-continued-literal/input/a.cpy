       01  A PIC X(42)   VALUE "abcd
      -                    "ef".
