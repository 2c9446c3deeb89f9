       01  :TAG:-REC.
           05  :TAG:-A             PIC X(:N:).
           05  PRE-:tag:           PIC X(1:N:).
           05  L-:TAG:-R           PIC X.
           05  :NONE:B             PIC X(3).
