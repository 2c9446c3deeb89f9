       01  A                                                      PIC 9999
           .
