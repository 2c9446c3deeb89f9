       01  REC.
           05  STATE               PIC X(3).
               88  OPEN-ORDER      VALUE "new".
               88  CLOSED          VALUE "end".
           05  KIND                PIC 9.
               88  LOW             VALUE 1.
               88  HIGH            VALUE 9.
           05  MODE-1              PIC S9(2) COMP-3.
               88  SOME            VALUES -5 THRU 5, 9.
