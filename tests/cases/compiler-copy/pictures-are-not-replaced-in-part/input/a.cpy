       COPY PART REPLACING X BY A
                           N BY 4
                           ==9== BY ==9(5)==.
