       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       FILE SECTION.
       FD  F1.
       01  R1.
           05  N                   PIC 9.
           05  A                   PIC X OCCURS 1 TO 2 DEPENDING ON N.
       FD  F2.
       01  R2.
           05  N                   PIC 9.
       WORKING-STORAGE SECTION.
       01  R3.
           05  G1.
               10  N               PIC 9.
           05  G2.
               10  n               PIC 9.
           05  B  PIC X OCCURS 1 TO 2 DEPENDING ON N IN G2.
           05  C  PIC X OCCURS 1 TO 2 DEPENDING N OF F2.
           05  D  PIC X OCCURS 1 TO 2 DEPENDING N IN R1 OF F1.
