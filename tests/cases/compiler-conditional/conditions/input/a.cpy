       >>DEFINE N AS 010
       >>DEFINE T AS "abc"
       >>DEFINE M AS N
       >>IF N = 10 AND T = 'abc' AND M EQUAL TO N
       01  A                       PIC X.
       >>END-IF
       >>IF N < 9 OR N > 9 AND NOT T = "x"
       01  B                       PIC X(2).
       >>END-IF
       >>IF (N < 9 OR N > 9) AND T = "x"
       01  NO-1                    PIC X.
       >>END-IF
       >>IF N GREATER THAN OR EQUAL TO 10.0 AND N <> 11
       01  C                       PIC X(3).
       >>END-IF
       >>IF N IS NOT LESS THAN 11
       01  NO-2                    PIC X.
       >>END-IF
       >>DEFINE N AS 11 OVERRIDE
       >>IF N <= 11 AND N >= 11
       01  D                       PIC X(4).
       >>END-IF
       >>DEFINE N OFF
       >>IF N DEFINED OR T NOT DEFINED
       01  NO-3                    PIC X.
       >>END-IF
