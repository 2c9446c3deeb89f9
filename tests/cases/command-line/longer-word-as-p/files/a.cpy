       01 rom-id PIC X(80) identified by "id" count in rom-id-count.

