       01 pay identified by "pay".
        02 cash PIC X(80) identified by "cash".
        02 card PIC X(80) identified by "card".
        02 memo PIC X(80) identified by "memo".

