       01 u identified by "u" count in u-count.
        02 u-union-value-0 count in u-union-value-0-count.
         03 u-union-value-0-data PIC S9(18) count in 
            u-union-value-0-data-count.
        02 u-union-value-1 redefines u-union-value-0 count in 
           u-union-value-1-count.
         03 u-union-value-1-data PIC X(80) count in 
            u-union-value-1-data-count.

