       01 h identified by "h".
        02 e identified by "e".
         03 c PIC X(80) identified by "c".
         03 c PIC X(80) identified by "c".

