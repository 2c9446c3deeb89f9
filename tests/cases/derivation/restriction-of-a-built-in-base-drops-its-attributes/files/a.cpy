       01 rec identified by "rec" namespace is 
          "http://www.w3.org/2024/XMLSchema-extras".
        02 a PIC X(7) identified by "a".
        02 b identified by "b".
         03 b-value PIC X(80).
         03 m PIC X(80) identified by "m" is attribute.

