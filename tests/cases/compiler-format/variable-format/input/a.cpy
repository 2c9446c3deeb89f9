000100 01  A                       PIC X(50) VALUE 'abcdefghijklmnopqrstuvwxyz-ABCDEFGHIJKLMNOPQRSTUVW'. 01 B PIC X.
      *01  C                       PIC X.
