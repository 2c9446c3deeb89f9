        01 TEXTS identified by "TEXTS".
         02 A pic X(10) identified by "A".
         02 B pic X(10) identified by "B".
         02 C pic A(5) identified by "C".
         02 D pic XXBXX identified by "D".
         02 E pic X(3) value is "yes" identified by "E".
         02 F pic N(4) usage is national identified by "F".
         02 G pic N(4) usage is national identified by "G".
         02 H pic G(4) usage is national identified by "H".
         02 I pic 9(4) usage is national identified by "I".
         02 J pic 1(8) usage is bit identified by "J".
