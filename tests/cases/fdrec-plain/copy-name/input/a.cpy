       01 A identified by "a".
          05 B PIC X(3) identified by "b" count in B-COUNT.
             88 C value "abc".
          66 D RENAMES B.
