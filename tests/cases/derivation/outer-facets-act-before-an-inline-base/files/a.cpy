       01 c PIC X(20) identified by "c".

