       01 ö PIC X(80) identified by "ö" count in ö-count.

