        01 ADDRESSES identified by "ADDRESSES".
         02 A usage is pointer identified by "A".
         02 B usage is program-pointer identified by "B".
         02 C usage is procedure-pointer identified by "C".
         02 D usage is function-pointer identified by "D".
         02 E usage is object reference identified by "E".
         02 F usage is handle identified by "F".
