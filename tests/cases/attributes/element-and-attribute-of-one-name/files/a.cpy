       01 part identified by "part".
        02 code PIC X(80) identified by "code".
        02 code PIC S9(18) identified by "code" is attribute.

