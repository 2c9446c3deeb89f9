Tallmere FDMORPH Version 1.0
Converts between COBOL data definitions and XML Schema

       01 code PIC X(80) identified by "code" count in code-count.

