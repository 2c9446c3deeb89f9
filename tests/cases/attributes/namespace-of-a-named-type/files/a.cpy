       01 part identified by "part" namespace is "urn:p".
        02 code PIC X(4) identified by "code" namespace is "urn:codes" 
           is attribute.

