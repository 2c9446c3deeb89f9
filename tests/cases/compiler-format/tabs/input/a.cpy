	01	REC.
		05	A	PIC X(4).
      *	a comment
		05	B				PIC X(2).	IGNORED
