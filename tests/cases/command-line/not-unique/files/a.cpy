       01 r identified by "r" count in r-count.
        02 a PIC X(80) identified by "a" count in a-count.
        02 a PIC X(80) identified by "a" count in a-count.

