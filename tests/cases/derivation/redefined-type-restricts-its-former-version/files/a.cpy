       01 staff identified by "staff".
        02 name PIC X(80) identified by "name".

