       01 doc PIC X(80) identified by "doc" namespace is 
          "http://www.w3.org/2024/XMLSchema-extras".

