01 GRÖSSE	PIC Q.
01 A PIC X(112) VALUE 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx'. 01 B PIC Q. 01 C PIC X(30) VALUE 'yyyyyyyyyyyyyyyyyyyyyyyyyyyyyy'. 01 D PIC Q.
