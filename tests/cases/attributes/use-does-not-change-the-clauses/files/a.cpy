       01 person identified by "person".
        02 name PIC X(80) identified by "name".
        02 id PIC S9(18) identified by "id" is attribute.
        02 age PIC 9(18) identified by "age" is attribute.
        02 rank PIC X(80) identified by "rank" is attribute.

