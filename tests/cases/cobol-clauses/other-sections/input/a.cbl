       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       ENVIRONMENT DIVISION.
       DATA DIVISION.
       SCREEN SECTION.
       01  MENU.
           05  LINE 1 COLUMN 1 VALUE "Menu".
       WORKING-STORAGE SECTION.
       01  REC.
           05  A                   PIC X.
       PROCEDURE DIVISION.
           DISPLAY A.
