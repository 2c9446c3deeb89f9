       01 staff identified by "staff".
        02 name PIC X(80) identified by "name".
        02 badge PIC S9(18) identified by "badge".

