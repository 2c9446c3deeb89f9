        01 TOTAL pic S9(9)V99 usage is comp-3 identified by "TOTAL".
