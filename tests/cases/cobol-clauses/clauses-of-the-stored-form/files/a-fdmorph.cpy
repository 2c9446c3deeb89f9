        01 STORED identified by "STORED".
         02 A pic S9(3) sign is leading identified by "A".
         02 B pic S9(3) sign is leading separate identified by "B".
         02 C pic S9(3) identified by "C".
         02 D pic S9(3) sign is trailing separate identified by "D".
         02 E pic X(5) justified right identified by "E".
         02 F pic ZZ9 blank when zero identified by "F".
         02 G pic S9V9 value is -1.5 identified by "G".
         02 H pic X(3) value is " " identified by "H".
