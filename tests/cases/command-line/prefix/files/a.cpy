       01 WS-code PIC X(80) identified by "code" count in WS-code-count.

