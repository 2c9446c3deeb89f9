       01 h identified by "h".
        02 e PIC X(80) identified by "e".
        02 m identified by "m".
         03 e PIC X(80) identified by "e".
         03 k PIC S9(18) identified by "k".
        02 m identified by "m".
         03 e PIC X(80) identified by "e".
         03 k PIC S9(18) identified by "k".

