       01 bill identified by "bill".
        02 net PIC S9(5)V9(2) identified by "net".
        02 gross identified by "gross".
         03 gross-value PIC S9(9).
         03 currency PIC X(80) identified by "currency" is attribute.

