       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.

       WORKING-STORAGE SECTION.
       01  A                       PIC X.
       IDENTIFICATION DIVISION.
       PROGRAM-ID. Q.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  B                       PIC Q.
       END PROGRAM Q.
