       01 staff identified by "staff" namespace is "urn:a".
        02 name PIC X(80) identified by "name" namespace is "urn:t".
        02 badge PIC S9(18) identified by "badge".

