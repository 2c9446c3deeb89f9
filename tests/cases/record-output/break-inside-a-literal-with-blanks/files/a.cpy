       01 a PIC X(80) identified by "a" namespace is "urn:first-part 
          second-part".

