                                   PIC X(2)
                                   VALUE "b"
