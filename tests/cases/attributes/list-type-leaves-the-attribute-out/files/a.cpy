       01 part identified by "part".
        02 id PIC S9(18) identified by "id" is attribute.

