       01 order identified by "order".
        02 id PIC S9(18) identified by "id".
        02 line identified by "line".
         03 sku PIC X(80) identified by "sku".
        02 state PIC X(2) identified by "state".
        02 note PIC X(80) occurs 2 times identified by "note".
        02 cash PIC X(80) identified by "cash".
        02 card PIC X(80) identified by "card".
        02 memo PIC X(80) identified by "memo".
        02 size identified by "size".
         03 size-union-value-0.
          04 size-union-value-0-data PIC S9(18).
         03 size-union-value-1 redefines size-union-value-0.
          04 size-union-value-1-data PIC X(80).
        02 ver PIC X(80) identified by "ver" is attribute.
        02 by PIC X(80) identified by "by" is attribute.

