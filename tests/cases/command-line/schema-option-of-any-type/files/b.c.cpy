       01 other PIC X(80) identified by "other" count in other-count.

