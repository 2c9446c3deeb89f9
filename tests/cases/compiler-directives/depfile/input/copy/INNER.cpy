           05  B PIC X.
