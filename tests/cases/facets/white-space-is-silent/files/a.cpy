       01 rec identified by "rec".
        02 a PIC X(80) identified by "a".
        02 b PIC X(80) identified by "b".
         88 enumerator-0 value is "X".
        02 c PIC X(3) identified by "c".

