       01 h identified by "h".
        02 h PIC X(80) identified by "h".
        02 x identified by "x".
         03 h-1 PIC X(80) identified by "h".
        02 y identified by "y".
         03 n PIC X(80) identified by "n".
         03 z identified by "z".
          04 n-1 PIC X(80) identified by "n".

