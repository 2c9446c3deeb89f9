       01 doc identified by "doc".
        02 novel PIC X(80) identified by "novel".
        02 last PIC S9(18) identified by "last".

