       01  ADDRESSES.
           05  A                   POINTER.
           05  B                   PROGRAM-POINTER.
           05  C                   PROCEDURE-POINTER.
           05  D                   FUNCTION-POINTER.
           05  E                   OBJECT REFERENCE.
           05  F                   HANDLE.
