       01 staff identified by "staff".
        02 badge PIC S9(18) identified by "badge".

