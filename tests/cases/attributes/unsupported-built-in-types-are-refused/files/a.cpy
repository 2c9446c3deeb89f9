       01 part identified by "part".
        02 id PIC X(80) identified by "id" is attribute.

