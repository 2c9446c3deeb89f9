>>IF A DEFINED
01 A PIC X.
   >> ELSE
01 B PIC X(2).
>>END-IF *> of A
