           05  :T:-A               PIC X.
