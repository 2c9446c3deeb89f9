       IDENTIFICATION DIVISION.
       PROGRAM-ID. P.
       DATA DIVISION.
       FILE SECTION.
       01  NO-FILE                 PIC X.
       WORKING-STORAGE SECTION.
       66  NO-RECORD RENAMES A.
       88  NO-ITEM                 VALUE 1.
       05  NO-GROUP                PIC X.
       01  REC.
           10  A.
               20  B               PIC X.
               15  C               PIC X.
           05  D                   PIC X.
           05  E                   PIC X.
       77  F.
           05  G                   PIC X.
       01  H                       PIC X.
