       01  A-RECORD PCI X.
