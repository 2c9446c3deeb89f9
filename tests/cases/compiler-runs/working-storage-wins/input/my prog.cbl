       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       FILE SECTION.
       FD  F1.
       01  REC                     PIC X.
       WORKING-STORAGE SECTION.
       01  W-REC.
           05  A                   PIC X(2).
