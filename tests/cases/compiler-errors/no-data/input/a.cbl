       IDENTIFICATION DIVISION.
       PROGRAM-ID. A.
       DATA DIVISION.
       LOCAL-STORAGE SECTION.
       01  B                       PIC X.
       LINKAGE SECTION.
       01  C                       PIC X.
