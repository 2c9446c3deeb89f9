       01  REC.
           05  A                   PIC X VALUE.
           05  B                   PIC X VALUE IS FOO.
           05  C                   PIC X.
               88  C-1.
               88  C-2             VALUES ARE.
               88  C-3             VALUE "a" THRU.
               88  C-4             VALUE "a" THRU "b" THRU "c".
               88  C-5             PIC X VALUE "a".
           05  D                   PIC X VALUE "a" "b".
