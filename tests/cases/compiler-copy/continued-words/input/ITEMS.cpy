           02  FIRST               PIC X.
           02  FI
      -    RST-2               PIC X(2).
           02  LA
      -    ST                  PIC X(3).
