       01  REC                     USAGE POINTER.
           05  A.
           05  B.
       01  REC-2                   BINARY-LONG UNSIGNED.
           05  C                   OCCURS 2.
           05  G.
               10  D.
