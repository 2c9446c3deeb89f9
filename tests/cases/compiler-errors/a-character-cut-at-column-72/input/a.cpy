       01  A                       PIC XXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXé
           .
