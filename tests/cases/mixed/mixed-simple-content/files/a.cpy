       01 rec identified by "rec".
        02 plain identified by "plain".
         03 plain-value PIC X(80).
        02 marked identified by "marked".
         03 marked-value PIC S9(18).
         03 unit PIC X(80) identified by "unit" is attribute.

