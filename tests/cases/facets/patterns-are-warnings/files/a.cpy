       01 c PIC X(6) identified by "c".

