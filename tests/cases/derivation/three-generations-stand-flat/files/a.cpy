       01 rec identified by "rec".
        02 part occurs 2 times identified by "part".
         03 a PIC S9(18) identified by "a".
         03 p PIC S9(18) identified by "p" is attribute.
         03 b PIC S9(18) identified by "b".
         03 q PIC S9(18) identified by "q" is attribute.
         03 c PIC S9(18) identified by "c".
         03 r PIC S9(18) identified by "r" is attribute.

