       77  A PIC X.
