           02  B PIC X.
