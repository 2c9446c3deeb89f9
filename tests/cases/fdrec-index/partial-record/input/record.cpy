       01  A-RECORD.
           05 A-TEXT PIC X(4).
