       >>IF NOTHING IS DEFINED
       >>IF NOTHING IS NOT DEFINED
       01  A                       PIC X.
       >>ELSE
       01  B                       PIC X.
       >>END-IF
       >>ELSE
       >>IF NOTHING IS NOT DEFINED
       01  C                       PIC X(3).
       >>ELSE
       01  D                       PIC X.
       >>END-IF
       >>END-IF
