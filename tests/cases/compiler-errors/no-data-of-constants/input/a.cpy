       78  A                       VALUE 1.
