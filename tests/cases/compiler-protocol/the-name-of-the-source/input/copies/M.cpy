       01  B                        PIC 9 VALUE 12.
