000100 01  A                   PIC X.                                   IGNORED
