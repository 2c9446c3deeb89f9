01 A PIC X(6) VALUE "abc"-
    "def".
