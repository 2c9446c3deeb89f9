       PROGRAM-ID. P.
       DATA DIVISION.
       LINKAGE SECTION.
       01  NAME                    PIC X ANY LENGTH.
       01  NUMBER-1                PIC 9 ANY NUMERIC.
