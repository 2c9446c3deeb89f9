       01 h identified by "h".
        02 b PIC X(80) identified by "b".
        02 t identified by "t".
         03 z PIC X(80) identified by "z".

