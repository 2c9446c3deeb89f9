       01 a identified by "a" namespace is 
          "http://www.w3.org/2001/XMLSchema".
        02 x PIC X(80) identified by "x" namespace is "urn:t".

