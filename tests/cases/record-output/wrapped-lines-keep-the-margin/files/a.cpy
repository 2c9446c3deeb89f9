       01 a identified by "a" count in a-count.
        02 b identified by "b" count in b-count.
         03 c identified by "c" count in c-count.
          04 d identified by "d" count in d-count.
           05 customer-reference-identifier PIC X(80) identified by 
              "customer-reference-identifier" namespace is 
              "urn:example:orders:customer:reference:identifier:v1" 
              count in customer-reference-identifier-count.

