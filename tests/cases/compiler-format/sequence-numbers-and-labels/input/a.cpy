000100 01  A                   PIC X                                    'label 1
ab"c"d                             VALUE "a"                            .IGNORED
(03)()                             .                                    
000400 01  B                   PIC X(2).                                "a.b.c'd
