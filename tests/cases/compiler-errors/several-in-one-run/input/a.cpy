       77  A                       PIC Q.
       01  REC.
           05  B                   PIC X(3) VALUE "toolong".
           COPY NOWHERE.
           05  C.
           05  D REDEFINES B       PIC X(4).
           05  E                   PIC 9 OCCURS 1 TO 3 DEPENDING ON F.
             05 G PIC X PIC X.
