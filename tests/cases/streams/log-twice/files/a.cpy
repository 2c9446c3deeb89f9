       01 code PIC X(80) identified by "code" count in code-count.

