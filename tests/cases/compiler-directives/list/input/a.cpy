       78  K VALUE 5.
       01  ORDER-REC.
           05  ID-NUMBER PIC 9(4) COMP.
               88  NO-ID VALUE 0.
           05  PIC X.
           COPY LINES.
           66  SAME RENAMES ID-NUMBER.
