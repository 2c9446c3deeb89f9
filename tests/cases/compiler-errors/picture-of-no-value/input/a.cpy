       01  REC.
           05  A                   VALUE 12.
           05  B                   USAGE COMP-3 VALUE "12".
           05  C                   USAGE COMP VALUE "ab".
       77  D                       VALUE "d".
