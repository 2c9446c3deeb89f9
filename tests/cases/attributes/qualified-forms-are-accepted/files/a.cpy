       01 part identified by "part" namespace is "urn:p".
        02 id PIC S9(18) identified by "id" is attribute.
        02 rank PIC S9(18) identified by "rank" is attribute.

