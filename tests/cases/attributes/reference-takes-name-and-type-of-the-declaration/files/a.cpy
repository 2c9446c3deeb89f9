       01 weight identified by "weight" count in weight-count.
        02 unit-code PIC X(80) identified by "unit_code" is attribute 
           count in unit-code-count.
        02 scale PIC S9(18) identified by "scale" is attribute count in 
           scale-count.

