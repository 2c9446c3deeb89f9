       01 doc identified by "doc".
        02 book PIC X(30) identified by "book".
        02 last PIC S9(18) identified by "last".

