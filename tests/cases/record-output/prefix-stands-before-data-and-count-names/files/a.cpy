       01 WS-h identified by "h" count in WS-h-count.
        02 WS-a-b PIC X(80) identified by "a_b" count in WS-a-b-count.

