       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.

       LOCAL-STORAGE SECTION.
       01  LOCAL-REC.
           05  L                   PIC 9(2).
       LINKAGE SECTION.
       01  LINK-REC.
           05  N                   PIC 9(2).
       SCREEN SECTION.
       01  SCR BLANK SCREEN.
           05  VALUE "Name:" LINE 2 COL 1.
           05  S PIC X(10) USING NAME-1 REVERSE-VIDEO.
       WORKING-STORAGE SECTION.
       01  REC.
           05  A                   PIC X OCCURS 1 TO 9 DEPENDING ON N.
           05  B                   PIC X OCCURS 1 TO 9 DEPENDING ON L.
