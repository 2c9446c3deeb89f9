       01 guest identified by "guest".
        02 name PIC X(80) identified by "name".

