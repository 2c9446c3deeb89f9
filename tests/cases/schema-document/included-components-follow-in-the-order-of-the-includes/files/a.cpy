       01 own PIC X(80) identified by "own".

       01 one PIC X(80) identified by "one".

       01 two PIC X(80) identified by "two".

