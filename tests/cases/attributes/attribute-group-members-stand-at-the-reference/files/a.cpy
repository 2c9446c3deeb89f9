       01 entry identified by "entry".
        02 id PIC S9(18) identified by "id" is attribute.
        02 by PIC X(80) identified by "by" is attribute.
        02 day PIC X(80) identified by "day" is attribute.
        02 hour PIC 9(18) identified by "hour" is attribute.
        02 text PIC X(80) identified by "text" is attribute.

