       COPY PART REPLACING REC BY ORDER-REC
                           A BY B, b BY A
                           CODE BY Code-2.
