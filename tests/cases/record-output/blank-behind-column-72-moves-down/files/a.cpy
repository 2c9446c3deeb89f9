       01 h identified by "h" count in h-count.
        02 seventeen-letters PIC X(80) identified by "seventeen-letters"
            count in seventeen-letters-count.

