       01 entry identified by "entry".
        02 by PIC X(80) identified by "by" is attribute.
        02 id PIC S9(18) identified by "id" is attribute.

