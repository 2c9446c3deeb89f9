       PROGRAM-ID. P.
       ENVIRONMENT DIVISION.
       CONFIGURATION SECTION.
       SPECIAL-NAMES.
           CURRENCY SIGN IS "F"
           DECIMAL-POINT IS COMMA.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  REC.
           05  A                   PIC FF.FF9,99.
           05  B                   PIC S9V9 VALUE -1,5.
