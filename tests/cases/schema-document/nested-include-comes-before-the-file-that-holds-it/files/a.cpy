       01 own PIC X(80) identified by "own".

       01 inner PIC X(80) identified by "inner".

       01 outer PIC X(80) identified by "outer".

