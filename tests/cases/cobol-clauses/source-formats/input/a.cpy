       >>SOURCE FORMAT IS FREE
01 REC.
02 A PIC X. *> a comment
