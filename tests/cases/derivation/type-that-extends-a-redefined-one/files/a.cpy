       01 chief identified by "chief".
        02 name PIC X(80) identified by "name".
        02 badge PIC S9(18) identified by "badge".
        02 car PIC X(80) identified by "car".

