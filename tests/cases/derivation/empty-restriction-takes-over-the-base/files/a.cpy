       01 guest identified by "guest".
        02 nick PIC X(80) identified by "nick".
        02 id PIC S9(18) identified by "id" is attribute.

