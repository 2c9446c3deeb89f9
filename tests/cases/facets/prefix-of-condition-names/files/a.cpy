       01 WS-colour identified by "colour" count in WS-colour-count.
        88 WS-enumerator-0 value is "RED".
        02 WS-colour-value PIC X(80).

