05 :T:-A PIC X(3).
