       01 doc identified by "doc".
        02 a identified by "a".
         03 b PIC X(80) identified by "b".

