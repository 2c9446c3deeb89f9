       01  REC.
           COPY ITEMS REPLACING ==FIR
      -    ST== BY ==SEC
      -    OND==
      *    A comment in between.
               ==LAST== BY ==REAR==.
