       01 word identified by "word".
        88 enumerator-0 value is 
           "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789abcdefghijklmnopqrstuvwx
      -    "yz01234567".
        88 enumerator-1 value is "a value of several words that does not
            fit on the line it begins on".
        02 word-value PIC X(80).

