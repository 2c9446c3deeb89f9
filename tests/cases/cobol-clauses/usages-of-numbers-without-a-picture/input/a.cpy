       01  NUMBERS.
           05  A                   BINARY-CHAR.
           05  B                   BINARY-SHORT.
           05  C                   BINARY-LONG UNSIGNED.
           05  D                   BINARY-DOUBLE.
           05  E                   BINARY-INT.
           05  F                   BINARY-C-LONG.
           05  G                   SIGNED-SHORT.
           05  H                   SIGNED-INT.
           05  I                   SIGNED-LONG.
           05  J                   UNSIGNED-SHORT.
           05  K                   UNSIGNED-INT.
           05  L                   UNSIGNED-LONG.
           05  M                   FLOAT-SHORT.
           05  N                   FLOAT-LONG.
           05  O                   FLOAT-BINARY-32.
           05  P                   FLOAT-BINARY-64.
           05  Q                   FLOAT-BINARY-128.
           05  R                   FLOAT-DECIMAL-16.
           05  S                   FLOAT-DECIMAL-34.
           05  T                   FLOAT-EXTENDED.
           05  U                   INDEX.
