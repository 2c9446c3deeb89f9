       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       FILE SECTION.
       FD  F1.
       01  REC.
           05  A                   PIC X(5).
           05  B                   PIC S9(3)V9.
       FD  F2.
       01  REC-2                   PIC X.
       WORKING-STORAGE SECTION.
