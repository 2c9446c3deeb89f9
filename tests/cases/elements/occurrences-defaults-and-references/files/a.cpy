       01 doc identified by "doc" count in doc-count.
        02 amount PIC S9(9)V9(9) identified by "amount" count in 
           amount-count.
        02 code PIC X(80) identified by "code" count in code-count.
        02 note PIC X(80) occurs 4 times identified by "note" count in 
           note-count.

