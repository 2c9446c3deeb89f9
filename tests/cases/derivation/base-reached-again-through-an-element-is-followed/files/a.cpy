       01 h identified by "h".
        02 c identified by "c".
         03 t PIC S9(18) identified by "t".
         03 s PIC S9(18) identified by "s".
        02 t PIC S9(18) identified by "t".

