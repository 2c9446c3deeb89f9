       01 doc identified by "doc".
        02 a PIC X(80) identified by "a".
        02 b PIC X(80) identified by "b".

