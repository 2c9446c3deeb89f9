       01 h identified by "h" namespace is "urn:t".
        02 a-b PIC S9(18) occurs 2 times identified by "a_b".

