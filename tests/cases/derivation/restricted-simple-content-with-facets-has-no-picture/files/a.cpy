       01 rec identified by "rec".
        02 last PIC S9(18) identified by "last".

