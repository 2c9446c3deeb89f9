       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.

       WORKING-STORAGE SECTION.
       01  A                       PIC X.
       PROCEDURE DIVISION.
      7    STOP RUN.
