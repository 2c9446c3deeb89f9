       01 s PIC X(80) identified by "s".

