       01  REC.
           05  A                   PIC X USAGE FOO.
           05  B                   PIC X COMP.
           05  C                   PIC ZZ9 COMP-3.
           05  D                   PIC 9 COMP-1.
           05  E                   PIC X INDEX.
           05  F                   PIC X NATIONAL.
           05  G                   PIC A COMP-5.
       01  H                       COMP-3.
           05  I                   PIC 9(3).
           05  J                   PIC X(3).
       01  K                       PIC X USAGE IS.
