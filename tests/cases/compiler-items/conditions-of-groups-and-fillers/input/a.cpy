       01  REC.
           88  EMPTY               VALUE ZEROS.
           05  FILLER              PIC X.
               88  YES             VALUE "Y".
           05                      PIC 9.
               88  ONE             VALUE 1.
           05  C                   PIC ZZ9.
               88  FULL            VALUE "999".
           88  LAST-OF-C           VALUE "  1".
