       01 code PIC X(80) identified by "code" count in code-count.

       01 other PIC X(80) identified by "other" count in other-count.

