       01 a identified by "a" namespace is "urn:t".
        02 mine PIC X(80) identified by "mine".

