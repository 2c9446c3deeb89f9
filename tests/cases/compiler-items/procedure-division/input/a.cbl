       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.

       WORKING-STORAGE SECTION.
       01  A                       PIC X.
       PROCEDURE DIVISION USING A.
       MAIN-LINE.
           COPY NOWHERE.
           MOVE "open TO A.
           EXEC SQL SELECT 1
           01 B PIC Q.
