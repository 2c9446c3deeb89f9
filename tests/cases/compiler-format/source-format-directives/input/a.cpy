       01  A                       PIC X.
      *> a comment of the fixed part
       >>SOURCE FORMAT IS FREE
01 B PIC X(2).                                                                  01 C PIC X(3).
>>D 01 NO PIC X.
>>source fixed
000600 01  D                       PIC X(4).                            IGNORED
      >>SOURCE FORMAT VARIABLE
000700 01  E                                                                            PIC X(5).
