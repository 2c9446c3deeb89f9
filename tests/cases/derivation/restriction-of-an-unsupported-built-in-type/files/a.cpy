       01 rec identified by "rec".
        02 id PIC S9(18) identified by "id".

