       01 rec identified by "rec".
        02 price identified by "price".
         88 enumerator-0 value is "1.50".
         88 enumerator-1 value is "2.50".
         03 price-value PIC S9(9).
        02 step identified by "step".
         88 enumerator-0 value is "1".
         03 step-value PIC S9(18).

