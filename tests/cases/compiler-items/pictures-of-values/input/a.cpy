       01  REC.
           05  A                   VALUE "abc".
           05  B                   VALUE ZERO.
           05  C                   OCCURS 2 VALUE SPACES.
           05  D                   VALUE X"4142".
           05  E                   VALUE "it's" JUSTIFIED.
           05  F                   VALUE ALL "ab".
           05  G                   VALUE Z"ab".
