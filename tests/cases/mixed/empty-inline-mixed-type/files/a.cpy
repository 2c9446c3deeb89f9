       01 doc identified by "doc".
        02 id PIC S9(18) identified by "id".

