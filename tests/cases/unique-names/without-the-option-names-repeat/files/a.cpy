       01 h identified by "h" count in h-count.
        02 A PIC X(80) identified by "A" count in A-count.
        02 A PIC X(80) identified by "A" count in A-count.

