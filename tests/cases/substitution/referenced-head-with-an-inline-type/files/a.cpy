       01 doc identified by "doc" namespace is "urn:a".
        02 book identified by "book".
         03 title PIC X(80) identified by "title".
         03 title PIC X(80) identified by "title".
        02 novel PIC X(80) identified by "novel".
        02 last PIC S9(18) identified by "last".

