       01 a PIC X(80) identified by "a".

       01 c PIC X(80) identified by "c".

       01 b PIC X(80) identified by "b".

