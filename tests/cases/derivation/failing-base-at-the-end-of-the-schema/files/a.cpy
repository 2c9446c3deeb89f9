       01 rec identified by "rec".
        02 good PIC S9(18) identified by "good".

