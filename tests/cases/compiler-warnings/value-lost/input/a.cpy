       01  A                       PIC X.
           88  A-1                 VALUE LOW-VALUE.
           88  A-2                 VALUE "a" HIGH-VALUES "b".
           88  A-3                 VALUE LOW-VALUE THRU "c".
           88  A-4                 VALUE X"00" X"41".
       01  B                       PIC X VALUE LOW-VALUE.
       01  C                       PIC X(3) VALUE HIGH-VALUES.
       01  D                       PIC X(2) VALUE X"0041".
       01  E                       POINTER VALUE NULL.
       01  F                       VALUE "grp".
           05  G                   PIC X(3).
       01  H                       PIC 9(3) VALUE SPACE.
