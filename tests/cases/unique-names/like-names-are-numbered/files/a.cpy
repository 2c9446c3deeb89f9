       01 h identified by "h" count in h-count.
        02 A PIC X(80) identified by "A" count in A-count.
        02 A-1 PIC X(80) identified by "A" count in A-1-count.
        02 A-2 PIC X(80) identified by "A" count in A-2-count.

