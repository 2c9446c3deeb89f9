       EXEC SQL INCLUDE SQLCA END-EXEC.
       01  A                       PIC X.
       EXEC SQL INCLUDE sqlda END-EXEC.
       COPY DFHAID.
