        01 NUMBERS identified by "NUMBERS".
         02 A pic 9(5) identified by "A".
         02 B pic S9(5) identified by "B".
         02 C pic S9(5)V9(3) identified by "C".
         02 D pic 9(3)PP identified by "D".
         02 E pic VPP9(2) identified by "E".
         02 F pic ZZ,ZZ9.99 identified by "F".
         02 G pic $$$9.99CR identified by "G".
         02 H pic +9.99E+99 identified by "H".
         02 I pic 9(5) blank when zero identified by "I".
