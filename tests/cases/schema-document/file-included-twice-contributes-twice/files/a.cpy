       01 x PIC X(80) identified by "x".

       01 x PIC X(80) identified by "x".

