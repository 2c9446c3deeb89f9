       01  A                       PIC X(3) VALUE "abcd".
       01  B                       PIC Q.
