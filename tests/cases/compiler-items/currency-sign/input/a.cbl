       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       SPECIAL-NAMES.
           CURRENCY SIGN IS "F".
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  REC.
           05  A                   PIC F(3)9.99.
           05  B                   PIC F9(5).
           05  C                   PIC ff,ff9.
