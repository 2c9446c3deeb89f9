       01 h identified by "h".
        02 one identified by "one".
         03 v PIC X(80) identified by "v".
        02 two identified by "two".
         03 v PIC X(80) identified by "v".

