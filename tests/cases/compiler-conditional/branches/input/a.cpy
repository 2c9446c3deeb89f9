       >>DEFINE SIZE-1 AS 3
       >>IF SIZE-1 = 1
       01  A                       PIC X.
       >>ELIF SIZE-1 < 4
       01  B                       PIC X(2).
       >>ELIF SIZE-1 = 3
       01  C                       PIC X(3).
       >>ELSE
           COPY NOWHERE.
       01  D                       PIC X VALUE "open.
       >>DEFINE E AS 1
       >>END-IF
       >>IF E DEFINED
       01  E                       PIC X(5).
       >>END-IF
       01  F                       PIC X(6).
