000100     05  A                   PIC X.
       >>SOURCE FORMAT VARIABLE
000300*    a comment
