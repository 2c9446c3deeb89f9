       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION
       FILE SECTION.
       FD  IN-FILE RECORDING MODE IS F
       01  R                       PIC X.
