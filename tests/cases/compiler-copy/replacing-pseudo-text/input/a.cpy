       COPY PART REPLACING ==PIC X== BY ==PIC 9(3) COMP-3==
           ==05 FILLER PIC X(9) VALUE SPACES.== BY ====
           ==OCCURS  3 TIMES== BY ==OCCURS
           5 TIMES==.
