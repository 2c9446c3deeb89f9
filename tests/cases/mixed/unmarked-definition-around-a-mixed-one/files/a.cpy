       01 doc identified by "doc" namespace is 
          "http://www.w3.org/2024/XMLSchema-extras".
        02 doc-value PIC X(80).

