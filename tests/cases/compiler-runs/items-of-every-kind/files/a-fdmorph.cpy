        01 REC identified by "REC".
         02 A pic S9(4) identified by "A".
         02 B pic S9(4) sign is leading identified by "B".
         02 C pic X(3) justified right identified by "C".
         02 D pic 9(3) blank when zero identified by "D".
         02 E pic N(4) usage is national identified by "E".
         02 F usage is comp-2 identified by "F".
         02 G usage is pointer identified by "G".
         02 H pic 9(4) usage is comp-x identified by "H".
         02 I pic ZZ9.99 identified by "I".
         02 J pic 9(3)PP identified by "J".
         02 K usage is index identified by "K".
         02 L pic S9V9 value is -1.5 identified by "L".
         02 M pic X(3) value is "000" identified by "M".
         02 N pic X(2)BX identified by "N".
