       PROGRAM-ID. P.
       DATA DIVISION.
       FILE SECTION.
       FD  ORDERS RECORD CONTAINS 5 CHARACTERS.
       01  ORDER-RECORD            PIC X(5).
       SD  WORK.
       01  WORK-RECORD             PIC X(5).
       WORKING-STORAGE SECTION.
       01  TOTALS.
           05  TOTAL               PIC 9(5).
       LOCAL-STORAGE SECTION.
       01  CURSOR-1                PIC 9(2).
       LINKAGE SECTION.
       01  DFHCOMMAREA.
           05  CUSTOMER-NO         PIC 9(6).
       PROCEDURE DIVISION.
           GOBACK.
