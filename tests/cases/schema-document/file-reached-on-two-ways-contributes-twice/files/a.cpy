       01 d PIC X(80) identified by "d".

       01 d PIC X(80) identified by "d".

       01 b PIC X(80) identified by "b".

       01 c PIC X(80) identified by "c".

