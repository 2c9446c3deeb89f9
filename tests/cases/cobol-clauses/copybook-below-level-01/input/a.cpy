           05  STREET              PIC X(30).
           05  CITY                PIC X(20).
