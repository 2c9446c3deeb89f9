       01 note PIC X(80) identified by "note".

