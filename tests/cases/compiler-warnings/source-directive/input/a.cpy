       01  A                       PIC X.
       >>SPECIAL-THING 5
       01  B                       PIC X(2).
      $5 costs nothing
       >>TURN EC-ALL CHECKING ON
       >>PAGE
      $SET NOBOUND
       01  C                       PIC X(3).
