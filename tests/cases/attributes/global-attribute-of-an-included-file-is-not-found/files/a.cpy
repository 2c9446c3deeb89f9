       01 weight identified by "weight".
        02 scale PIC S9(3) identified by "scale" is attribute.

