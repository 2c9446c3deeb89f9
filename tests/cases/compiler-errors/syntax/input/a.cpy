       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       FILE SECTION.
       FD  .
       STORAGE SECTION.
       WORKING-STORAGE SECTION.
       01  REC.
           05  A                   PIC X FOO BAR VALUE "a" BAZ.
           05  B                   PIC S9 SIGN IS SEPARATE.
           05  C                   PIC 9 BLANK WHEN SPACE VALUE 1.
           FOO BAR 1.
           05  D                   PIC X.
