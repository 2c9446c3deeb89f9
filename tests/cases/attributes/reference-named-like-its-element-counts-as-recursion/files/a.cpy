       01 order identified by "order".
        02 id PIC S9(18) identified by "id".

