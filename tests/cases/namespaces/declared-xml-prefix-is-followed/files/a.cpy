       01 a identified by "a".
        02 t identified by "t" namespace is 
           "http://www.w3.org/XML/1998/namespace".
         03 v PIC X(80) identified by "v".
        02 b PIC X(80) identified by "b".

