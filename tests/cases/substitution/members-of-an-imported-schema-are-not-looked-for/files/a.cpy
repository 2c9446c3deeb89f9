       01 doc identified by "doc" namespace is "urn:a".
        02 book PIC X(80) identified by "book" namespace is "urn:b".
        02 last PIC S9(18) identified by "last".

