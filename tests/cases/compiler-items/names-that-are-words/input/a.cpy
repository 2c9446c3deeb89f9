       01  RECORD.
           05  DATE                PIC X.
           05  TITLE               PIC X.
           05  VALUE               PIC X VALUE "v".
           05  INDEX               PIC 9.
           05  SIGN                PIC S9 SIGN LEADING.
           05  COUNT               PIC 9.
           05  TYPE                OCCURS 2 PIC X.
           05  OCCURS              PIC X.
           05  COPY-2              PIC X.
           05  DATA.
               10  SECTION-1       PIC X.
               10  FILE            PIC X.
