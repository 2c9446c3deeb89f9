       >>IF WIDE DEFINED
       01  A                       PIC X.
       >>END-IF
       >>DEFINE DEEP AS 1
