           05  :P:-B               PIC X(9).
