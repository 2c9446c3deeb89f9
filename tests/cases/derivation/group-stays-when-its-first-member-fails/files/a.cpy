       01 doc identified by "doc".
        02 good PIC S9(18) identified by "good".

