       01 B-code PIC X(80) identified by "code" count in B-code-count.

