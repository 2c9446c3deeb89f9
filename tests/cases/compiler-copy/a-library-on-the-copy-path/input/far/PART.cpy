           05  NOT-ME              PIC X.
