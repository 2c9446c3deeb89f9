       01  REC.
           05  A                   PIC S9(3)V9.
               88  ONE             VALUE 1.
               88  SOME            VALUES ARE 1, 2.5 -3
                                   +4 05.
               88  RANGES          VALUE IS 10 THRU 20 -5 THROUGH ZERO.
               88  NONE            VALUES ZEROES.
           05  B                   PIC 9 COMP-3 VALUE 1 OCCURS 2.
               88  YES             VALUE 1
                                   WHEN SET TO FALSE IS 0.
