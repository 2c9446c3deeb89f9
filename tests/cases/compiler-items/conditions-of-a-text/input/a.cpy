       01  REC.
           05  A                   PIC X(3).
               88  LETTERS         VALUE "A" 'b' "d'" '"' "'" '''' """".
               88  RANGES          VALUE "a" THRU "f", SPACE THRU ZERO.
               88  FILLED          VALUES ZEROS SPACES QUOTE ALL "xy".
               88  BYTES           VALUE X"4142" x'43' ALL X"2A".
           05  B                   PIC N(2).
               88  NATIONALS       VALUE N"ab" NX"00E400DF" SPACE.
