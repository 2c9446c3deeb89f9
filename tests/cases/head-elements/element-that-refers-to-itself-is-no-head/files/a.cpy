       01 h PIC X(80) identified by "h".

