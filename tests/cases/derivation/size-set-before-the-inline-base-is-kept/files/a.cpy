       01 c PIC X(5) identified by "c".

