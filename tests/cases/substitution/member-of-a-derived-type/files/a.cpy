       01 doc identified by "doc".
        02 book PIC X(80) identified by "book".
        02 novel identified by "novel".
         03 novel-value PIC X(80).
         03 binding PIC X(80) identified by "binding" is attribute.
        02 atlas PIC X(9) identified by "atlas".
        02 last PIC S9(18) identified by "last".

