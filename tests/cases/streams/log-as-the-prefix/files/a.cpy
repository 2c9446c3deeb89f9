       01 -logid PIC X(80) identified by "id" count in -logid-count.

