       01  REC.
           COPY NOWHERE.
           COPY "sub/Part One.inc" OF LIB.
           EXEC SQL INCLUDE NOT-HERE END-EXEC.
           05  A                   PIC X.
