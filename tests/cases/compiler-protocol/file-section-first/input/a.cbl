       IDENTIFICATION DIVISION.
       PROGRAM-ID. BOTH.
       DATA DIVISION.
       FILE SECTION.
       FD  IN-FILE.
       01  IN-REC                  PIC X(8).
       WORKING-STORAGE SECTION.
       01  COUNTER                 PIC 9(4).
