       01 k PIC X(80) identified by "k".

