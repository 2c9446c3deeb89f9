       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT F1 ASSIGN TO DISK.
           SELECT F2 ASSIGN TO DISK.
       I-O-CONTROL.
           SAME RECORD AREA FOR F1, F2
           RERUN ON F1 EVERY 100 RECORDS OF F2
           MULTIPLE FILE TAPE CONTAINS F1 POSITION 1.
       DATA DIVISION.
       FILE SECTION.
       FD  F1.
       01  R1                      PIC X(8).
       FD  F2.
       01  R2.
           02  A                   PIC 9(3).
       01  R3                      PIC A(2).
