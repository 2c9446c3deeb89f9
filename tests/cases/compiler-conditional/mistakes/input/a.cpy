       >>ELSE
       >>END-IF
       >>IF NOTHING = 1
       >>END-IF
       >>IF 1
       >>END-IF
       >>IF 1 = "1"
       >>END-IF
       >>IF (1 = 1
       >>END-IF
       >>IF 1 = 1 2
       >>END-IF
       >>DEFINE A
       >>DEFINE B AS 1
       >>DEFINE B AS 2
       >>IF 1 = 1
       >>ELSE
       >>ELIF 1 = 1
       >>END-IF
       01  C                       PIC X.
       >>IF 1 = 2
       01  D                       PIC Q.
