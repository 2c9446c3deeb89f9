       78  A                       VALUE 5.
       78  B                       VALUE A * 2.
       78  a                       VALUE 6.
       01  B CONSTANT AS "b".
       78  C                       VALUE NOWHERE.
       78  E                       VALUE 1 / 0.
       01  F CONSTANT AS.
       78  I                       5.
       01  J CONSTANT "j".
       78  K                       VALUE LENGTH OF NONE.
       01  L.
           78  M                   VALUE LENGTH OF L + 1.
           05  N                   PIC X(3).
       78  G                       VALUE 9.
       78  O          VALUE 9007199254740992 * 9007199254740992.
       01  H                       PIC X(B) VALUE G.
