      *> a line of its own
       01  A  *> the name " of it
             PIC X(6)             *>no blank behind it
             VALUE "a *> b".      *> "
           *> in the text area
       01  B PIC X.*> right behind a period
       >>SOURCE FREE
*> from column 1
01 C *> .
 PIC X(2). *> the last one
