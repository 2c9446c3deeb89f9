       01 WS-h identified by "h" count in WS-h-count.
        02 WS-A PIC X(80) identified by "A" count in WS-A-count.
        02 WS-A-1 PIC X(80) identified by "A" count in WS-A-1-count.

