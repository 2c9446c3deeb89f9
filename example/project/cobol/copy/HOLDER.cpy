           05  HOLDER.
               10  HOLDER-NAME      PIC X(40).
               10  HOLDER-CITY      PIC X(30).
