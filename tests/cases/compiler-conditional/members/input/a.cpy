       >>DEFINE WIDE AS 1
           COPY PART.
       >>IF DEEP DEFINED
       01  B                       PIC X(2).
       >>END-IF
