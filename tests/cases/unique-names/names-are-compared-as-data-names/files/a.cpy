       01 h identified by "h".
        02 a-b PIC X(80) identified by "a_b".
        02 a-b-1 PIC X(80) identified by "a-b".

