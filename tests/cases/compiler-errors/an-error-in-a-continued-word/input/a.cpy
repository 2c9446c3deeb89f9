       01  A                       PIC X VALUE FOO
      -        BAR.
       01  B                       PIC 9(
      -    0).
