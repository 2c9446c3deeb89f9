       01  REC.
           EXEC SQL
               DECLARE CUST TABLE (ID CHAR(4) NOT NULL, 'it''s' 05 X.)
           END-EXEC.
           05  A                   PIC X.
           EXEC CICS 01 COPY NOTHING. END-EXEC
           05  B                   PIC X(2).
           exec sql declare C cursor for select * from CUST end-exec.
