       01 e PIC X(80) identified by "e".

