       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.

       FILE SECTION.
       FD  F1 IS EXTERNAL
           RECORD IS VARYING IN SIZE FROM 1 TO 80 CHARACTERS
               DEPENDING ON REC-LEN
           BLOCK CONTAINS 1 TO 10 RECORDS
           LABEL RECORD OMITTED
           VALUE OF FILE-ID IS "f1" SECURITY-CODE IS 12
           DATA RECORD IS R1
           LINAGE IS 60 LINES WITH FOOTING AT 55 LINES AT TOP 3
               LINES AT BOTTOM 3
           CODE-SET IS ASCII.
       01  R1                      PIC X(80).
       FD  F2 GLOBAL.
       01  R2                      PIC X(3).
       WORKING-STORAGE SECTION.
       77  REC-LEN                 PIC 9(4) COMP.
