       01  MASS                    PIC X(5) VALUE "Größe".
