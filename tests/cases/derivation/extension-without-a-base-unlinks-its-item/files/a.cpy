       01 rec identified by "rec".
        02 id PIC S9(18) identified by "id".
        02 last PIC S9(18) identified by "last".

