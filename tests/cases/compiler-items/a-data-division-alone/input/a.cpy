       WORKING-STORAGE SECTION.
       01  A                       PIC X.
       LINKAGE SECTION.
       01  B                       PIC X.
