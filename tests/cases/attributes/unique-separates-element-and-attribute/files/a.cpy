       01 part identified by "part" count in part-count.
        02 code PIC X(80) identified by "code" count in code-count.
        02 code-1 PIC S9(18) identified by "code" is attribute count in 
           code-1-count.

