       01 lamp identified by "lamp".
        02 colour PIC X(80) identified by "colour" is attribute.
        02 volts PIC S9(9)V9(9) identified by "volts" is attribute.

