       01 c PIC X(80) identified by "c".

