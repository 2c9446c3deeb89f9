       01 a identified by "a".
        02 b identified by "b" namespace is "urn:XMLSchema".
         03 x PIC X(80) identified by "x".
        02 c identified by "c" namespace is 
           "urn:XMLSchema/http://www.w3.org/".
         03 y PIC X(80) identified by "y".

