        01 NUMBERS identified by "NUMBERS".
         02 A pic S9(5)V99 identified by "A".
         02 B pic S9(4) usage is comp-4 identified by "B".
         02 C pic S9(9) usage is comp-4 identified by "C".
         02 D pic 9(9)V9 usage is comp-4 identified by "D".
         02 E pic S9(9) usage is comp-5 identified by "E".
         02 F pic S9(7)V99 usage is comp-3 identified by "F".
         02 G pic 9(5) usage is comp-3 identified by "G".
         02 H pic 9(4) usage is comp-6 identified by "H".
         02 I pic 9(4) usage is comp-n identified by "I".
         02 J pic 9(4) usage is comp-x identified by "J".
         02 K usage is comp-1 identified by "K".
         02 L usage is comp-2 identified by "L".
