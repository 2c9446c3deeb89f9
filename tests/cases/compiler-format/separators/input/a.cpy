       01  REC. 05 A, PIC X; VALUE "a". 05 B
           PICTURE
           IS

           X(2)
           .
