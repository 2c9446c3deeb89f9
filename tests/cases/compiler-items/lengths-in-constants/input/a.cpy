       01  REC.
           05  A                   PIC X(5).
           05  N                   PIC N(3).
           05  P                   PIC S9(5) COMP-3.
       78  LA                      VALUE LENGTH OF A.
       78  LN                      VALUE LENGTH N OF REC.
       78  LR                      VALUE LENGTH OF REC.
       78  LT                      VALUE LENGTH OF "abcd".
       78  L78                     VALUE 2 + 3 * 4.
       01  LC CONSTANT AS 2 + 3 * 4.
       01  LP CONSTANT AS (2 + 3) * 4.
       01  OUT-REC.
           05  B                   PIC X(LA).
           05  C                   PIC X(LN).
           05  D                   PIC X(LR).
           05  E                   PIC X(LT).
           05  F                   PIC X(L78).
           05  G                   PIC X(LC).
           05  H                   PIC X(LP).
