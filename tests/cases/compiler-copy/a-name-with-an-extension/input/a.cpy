       01  REC.
           COPY PART.INC.
           COPY PART.V2.INC REPLACING B BY C.
           COPY PART.INC OF LIB.
           COPY LAST.05 E PIC X(5).
