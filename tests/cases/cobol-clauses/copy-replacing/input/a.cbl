       PROGRAM-ID. P.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       REPLACE ==WIDE== BY ==PIC X(40)==.
       01  REC.
           COPY NAMES REPLACING ==:P:== BY ==CUST==.
           EXEC SQL INCLUDE CODES END-EXEC.
      >>IF TRACE IS DEFINED
           05  TRACE-LINE          PIC X(80).
      >>END-IF
