       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  REC.
           05  A                   PIC Q.
           COPY NOWHERE.
           05  B                   PIC X
