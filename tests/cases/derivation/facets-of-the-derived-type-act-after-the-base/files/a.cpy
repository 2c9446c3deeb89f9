       01 c PIC X(2) identified by "c".

