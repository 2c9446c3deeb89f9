       01 WS-my-doc identified by "my_doc" count in WS-my-doc-count.
        02 WS-a PIC X(80) identified by "a" count in WS-a-count.
        02 WS-b PIC S9(18) identified by "b" count in WS-b-count.
        02 WS-c PIC X(80) identified by "c" is attribute count in 
           WS-c-count.

