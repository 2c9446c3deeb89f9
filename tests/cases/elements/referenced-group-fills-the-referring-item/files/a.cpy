       01 h identified by "h".
        02 g identified by "g".
         03 v PIC X(80) identified by "v".

