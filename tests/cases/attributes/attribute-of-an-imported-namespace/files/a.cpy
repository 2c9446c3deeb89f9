       01 weight identified by "weight" namespace is "urn:w".
        02 unit PIC X(80) identified by "unit" namespace is "urn:units" 
           is attribute.
        02 scale PIC S9(18) identified by "scale" is attribute.

