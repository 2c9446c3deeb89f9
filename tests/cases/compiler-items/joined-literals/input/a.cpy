       01  A                       PIC X(8) VALUE "ab" & "cd" & 'ef'
                                   & X"4748".
