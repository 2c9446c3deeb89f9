       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT In-File ASSIGN TO "in.dat"
               ORGANIZATION IS LINE SEQUENTIAL.
           SELECT SORT-FILE ASSIGN TO DISK.
       DATA DIVISION.
       FILE SECTION.
       FD  In-File
           BLOCK CONTAINS 0 RECORDS
           RECORD CONTAINS 8 TO 12 CHARACTERS
           LABEL RECORDS ARE STANDARD
           DATA RECORDS ARE R1 R2
           RECORDING MODE IS F.
       01  R1                      PIC X(8).
       01  R2.
           05  A                   PIC X(12).
       SD  SORT-FILE.
       01  R3                      PIC X(3).
