       01  R.
           05  ÄÖ PCI X.
           COPY M.
