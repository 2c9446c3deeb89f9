       01  OLD-REC.
           05  OLD-A-IN            PIC X.
           05  B-OLD-C             PIC X(2).
           05  D-IN                PIC X(3).
           05  IN-E                PIC X(4).
