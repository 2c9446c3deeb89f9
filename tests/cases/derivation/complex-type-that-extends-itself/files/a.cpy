       01 b identified by "b".
        02 q PIC S9(18) identified by "q" is attribute.

