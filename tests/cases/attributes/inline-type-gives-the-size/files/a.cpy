       01 part identified by "part".
        02 code PIC X(10) identified by "code" is attribute.

