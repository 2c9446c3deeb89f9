       01 a PIC X(80) identified by "a".

       01 b PIC S9(18) identified by "b".

