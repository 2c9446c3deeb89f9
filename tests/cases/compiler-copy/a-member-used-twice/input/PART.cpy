               10  A               PIC X.
