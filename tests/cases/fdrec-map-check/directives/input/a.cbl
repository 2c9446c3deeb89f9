       IDENTIFICATION DIVISION.
       PROGRAM-ID. A.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  W PIC X.
       LINKAGE SECTION.
       01  L.
           05  FILLER PIC X.
           05  M PIC X.
           05  N REDEFINES M PIC 9.
