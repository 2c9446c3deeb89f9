       01  REC.
           05  A                   PIC ZZ9.99.
           05  B                   PIC $$,$$9.99.
           05  C                   PIC +9(3).
           05  D                   PIC ---9.
           05  E                   PIC 9(3)-.
           05  F                   PIC 9(3)CR.
           05  G                   PIC Z(4)db.
           05  H                   PIC **,**9.
           05  I                   PIC 99/99/9(4).
           05  J                   PIC 9(3)B9(2)0.
           05  K                   PIC Z(5).
           05  L                   PIC $Z(3),ZZ9.99.
           05  M                   PIC ZZ9V99.
