       01 -cid PIC X(80) identified by "id" count in -cid-count.

