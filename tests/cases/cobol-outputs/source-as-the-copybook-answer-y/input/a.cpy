       01  ORDER.
           05  CODE PIC X(5).
