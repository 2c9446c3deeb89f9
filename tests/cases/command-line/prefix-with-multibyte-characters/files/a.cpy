       01 ß-id PIC X(80) identified by "id" count in ß-id-count.

