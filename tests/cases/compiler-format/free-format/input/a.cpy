01 A
   PIC X(50)
VALUE 'abcdefghijklmnopqrstuvwxyz-ABCDEFGHIJKLMNOPQRSTUVW'.                    01 B PIC X.
01    D PIC X(2).
