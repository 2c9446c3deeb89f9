       01  A                        PIC X VALUE "abc".
           COPY M.
