       01  REC.
           05  A                   PIC X(3) VALUE "ab".
           05  B                   PIC X(3) VALUE 'a''b'.
           05  C                   PIC S9V99 VALUE IS -1.50.
           05  D                   PIC 9V9 VALUE .5.
           05  E                   PIC 9(3) VALUE ZERO.
           05  F                   PIC X(3) VALUE ZEROS.
           05  G                   PIC X(3) VALUE SPACES.
           05  H                   PIC X(2) VALUE QUOTES.
           05  K                   PIC X(5) VALUE ALL "ab".
           05  L                   PIC X(2) VALUE X"3C26".
           05  O                   COMP-1 VALUE 1.5E3.
           05  P                   PIC ZZ9 VALUE "  7".
           05  Q                   PIC 9(3) COMP-3 VALUE +7.
           05  R                   PIC X(4) VALUE "<&>".
