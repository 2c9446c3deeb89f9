       01 doc identified by "doc".
        02 book identified by "book".
         03 title PIC X(80) identified by "title".
        02 last PIC S9(18) identified by "last".

