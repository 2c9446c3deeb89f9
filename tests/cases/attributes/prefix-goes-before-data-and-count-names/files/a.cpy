       01 WS-price identified by "price" count in WS-price-count.
        02 WS-price-value PIC X(80).
        02 WS-unit PIC X(80) identified by "unit" is attribute count in 
           WS-unit-count.

