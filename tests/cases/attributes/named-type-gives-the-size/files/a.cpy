       01 part identified by "part".
        02 code PIC X(4) identified by "code" is attribute.
        02 note PIC X(80) identified by "note" is attribute.

