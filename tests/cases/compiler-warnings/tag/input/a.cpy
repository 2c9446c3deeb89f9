       01  :TAG:-REC.
           05  :TAG:-A             PIC X.
           05  B-:T2:-C            PIC X.
               88  :TAG:-YES       VALUE "Y".
           05  :TAG:               PIC 9.
           05  D PIC X OCCURS 1 TO 3 DEPENDING ON :TAG:.
