       01 rec identified by "rec".
        02 last PIC X(80) identified by "last".

