       01  rec.
           05  a                   PIC X.
           05  B                   PIC X(2).
           05  CODE                PIC X(3).
           05  CODE-A              PIC X(4).
           05  A-CODE              PIC X(5) VALUE "A".
