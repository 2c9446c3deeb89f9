       01  GRÖSSE                  PIC X(5) VALUE "Größe".
