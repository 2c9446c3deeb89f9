       01 doc identified by "doc".
        02 book identified by "book".
         03 book-value PIC X(80).
         88 enumerator-1 value is "A".
         88 enumerator-2 value is "B".
         03 book-value PIC X(80).
        02 last PIC S9(18) identified by "last".

