       01 rate USAGE COMP-1 identified by "rate".
        02 unit PIC X(80) identified by "unit" is attribute.

