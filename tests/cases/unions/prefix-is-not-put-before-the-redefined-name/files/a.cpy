       01 WS-my-u identified by "my_u" count in WS-my-u-count.
        02 WS-my-u-union-value-0.
         03 WS-my-u-union-value-0-data PIC S9(18).
        02 WS-my-u-union-value-1 redefines my-u-union-value-0.
         03 WS-my-u-union-value-1-data PIC X(80).

