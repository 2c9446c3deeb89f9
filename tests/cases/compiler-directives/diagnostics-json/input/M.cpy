           05  B PIC X VALUE "a\b".
