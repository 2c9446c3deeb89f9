       01 a PIC X(80) identified by "a".

