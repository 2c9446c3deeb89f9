       IDENTIFICATION
      * A comment.
           DIVISION
           .
       PROGRAM-ID
           .
           P
           .
       DATA

           DIVISION.
       WORKING-STORAGE
      / A page.
           SECTION
           .
       01
          A
          PIC
          IS

          S9(5)V9(2)
          USAGE
      *    COMP.
          IS
          COMP-3
          .
       01
          B
          PICTURE
          X
          .
