       01  A.
           05  NEW.
               10  B PIC X.
               10  D PIC X.
           05  OTHER.
               10  B PIC X.
