       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  :TAG:-REC.
           05  A-:TAG:             PIC X(:N:).
           05  B PIC X OCCURS 1 TO 3 DEPENDING ON :TAG:.
