        02 y PIC X(80) identified by "y".

