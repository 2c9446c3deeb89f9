       01 doc identified by "doc" namespace is "urn:a".
        02 book PIC X(30) identified by "book" namespace is "urn:t".
        02 last PIC S9(18) identified by "last".

