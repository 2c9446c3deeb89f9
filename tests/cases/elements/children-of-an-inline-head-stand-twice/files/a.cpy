       01 h identified by "h".
        02 e identified by "e".
         03 c PIC X(80) identified by "c".
         03 c PIC X(80) identified by "c".
        02 m PIC X(80) identified by "m".
        02 z PIC X(80) identified by "z".

