       01 note identified by "note".
        02 text PIC X(80) identified by "text".

