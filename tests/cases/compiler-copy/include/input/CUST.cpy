       01  CUST-ID                 PIC X(4).
