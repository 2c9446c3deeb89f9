       78  WIDTH                   VALUE 7.
       01  REC.
           05  A                   PIC X(10) VALUE "old".
           05  B                   PIC X(10) VALUE "OLD".
           05  C                   PIC X(5)  VALUE "10 5".
           05  D                   PIC S9    VALUE -1.
