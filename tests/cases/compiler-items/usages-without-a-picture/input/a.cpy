       01  REC.
           05  A                   COMP-1.
           05  B                   USAGE COMPUTATIONAL-2.
           05  C                   USAGE IS INDEX.
           05  D                   POINTER.
           05  E                   PROCEDURE-POINTER.
           05  F                   BINARY-CHAR.
           05  G                   BINARY-SHORT SIGNED.
           05  H                   BINARY-LONG UNSIGNED.
           05  I                   BINARY-DOUBLE.
           05  J                   FLOAT-SHORT.
           05  K                   FLOAT-LONG.
