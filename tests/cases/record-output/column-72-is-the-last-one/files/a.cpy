       01 h identified by "h".
        02 sixteen-letter-a PIC S9(18) identified by "sixteen-letter-a".
        02 seventeen-letters PIC X(80) identified by 
           "seventeen-letters".

