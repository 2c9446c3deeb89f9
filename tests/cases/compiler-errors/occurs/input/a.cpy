       78  K                       VALUE 3.
       78  T                       VALUE "3".
       01  REC.
           05  N                   PIC 9.
           05  A                   PIC X OCCURS 0.
           05  B                   PIC X OCCURS 0 TIMES.
           05  C                   PIC X OCCURS 3 TO 2 DEPENDING ON N.
           05  D                   PIC X OCCURS 3 TO 3 DEPENDING ON N.
           05  E                   PIC X OCCURS 1 TO 3.
           05  F                   PIC X OCCURS TIMES.
           05  G                   PIC X OCCURS T TIMES.
           05  H                   PIC X OCCURS -1 TIMES.
           05  I                   PIC X OCCURS 1.5 TIMES.
           05  J                   PIC X OCCURS 3000000000 TIMES.
           05  L                   PIC X OCCURS K TIMES.
           05  M                   PIC X OCCURS 1 TO N DEPENDING ON N.
           05  P                   PIC X OCCURS 3 ASCENDING KEY IS N.
           05  Q                   PIC X OCCURS 3 DESCENDING Q.
