       01  A.
           05  B PIC X FO[31mO.
           05  "C2J" PIC X.
	   05  D PIC X VALUE.
