       01 c PIC X(4) identified by "c".

