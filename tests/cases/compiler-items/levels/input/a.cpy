       1 REC.
         7 A.
           8 B PIC X.
           08 C.
             49 D PIC X(2).
             49 E PIC X(3).
         07 F PIC X(4).
       01 NEXT-REC PIC X(5).
