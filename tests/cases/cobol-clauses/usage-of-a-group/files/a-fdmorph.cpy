        01 REC identified by "REC".
         02 AMOUNTS identified by "AMOUNTS".
          03 NET pic S9(7)V99 usage is comp-3 identified by "NET".
         02 OFFSETS identified by "OFFSETS".
          03 SHIFT pic S9(3) sign is leading separate identified by 
             "SHIFT".
