      $SET CONSTANT KIND(2)
      $SET CONSTANT WORD "yes"
      $IF KIND = 1
       01  A                       PIC X.
      $ELSE
       01  B                       PIC X(2).
      $END
      $if word = "yes"
       01  C                       PIC X(3).
      $end
      $IF KIND DEFINED
       01  D                       PIC X(4).
      $END
