       01 picture identified by "picture".
        02 data PIC X(80) identified by "data".
        02 kind identified by "kind" is attribute.
         88 enumerator-0 value is "gif".
         88 enumerator-1 value is "png".
         03 kind-value PIC X(80).

