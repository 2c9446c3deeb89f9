       01 rec identified by "rec" namespace is "urn:a".
        02 e identified by "e".
         03 e-value PIC X(7).
         03 m PIC X(80) identified by "m" is attribute.
        02 f identified by "f".
         03 f-value PIC S9(18).
         03 k PIC X(80) identified by "k" is attribute.

