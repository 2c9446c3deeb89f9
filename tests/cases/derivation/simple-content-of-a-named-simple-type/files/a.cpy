       01 c identified by "c".
        02 c-value PIC X(4).
        02 list PIC X(80) identified by "list" is attribute.

