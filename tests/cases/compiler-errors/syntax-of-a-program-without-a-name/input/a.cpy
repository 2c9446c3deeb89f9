       IDENTIFICATION DIVISION.
       PROGRAM-ID.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  A                       PIC Q.
