       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       WORKING-STORAGE SECTION
       01  A                       PIC X
       01  B                       PIC X(3)   *> no period here
       *> nor here
           VALUE "a.b"
       01  C.
           05  D                   PIC 9.9
           05  E                   PIC 9
