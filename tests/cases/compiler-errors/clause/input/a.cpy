       01  REC.
           05  A                   PIC 9 JUST.
           05  B                   PIC ZZ9 JUSTIFIED RIGHT.
           05  C                   COMP-1 JUST.
           05  D                   PIC X BLANK WHEN ZERO.
           05  E                   PIC 9 COMP-3 BLANK WHEN ZERO.
           05  F                   POINTER BLANK WHEN ZERO.
           05  G                   JUST.
               10  H               PIC X.
           05  I                   BLANK WHEN ZERO.
               10  J               PIC 9.
           05  K                   PIC ZZ9 BLANK WHEN ZERO.
           05  L                   PIC N JUST.
           05  M                   PIC X EXTERNAL.
           05  N IS GLOBAL         PIC X.
       77  O EXTERNAL              PIC X.
