       01 order-record identified by "order-record" count in 
          order-record-count.
        02 a PIC X(80) identified by "a" count in a-count.

