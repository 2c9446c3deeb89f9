       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       SPECIAL-NAMES. DECIMAL-POINT IS COMMA.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  REC.
           05  A                   PIC Z.ZZ9,99.
           05  B                   PIC 9(3)V99 VALUE 1,50.
           05  C                   PIC S9V9, VALUE -,5.
               88  C-1             VALUES 1,5, 2,5 THRU 3.
