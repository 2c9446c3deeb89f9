        01 REC identified by "REC".
         02 A pic X identified by "A".
         02 FILLER pic X(3).
         02 B pic S9(9) usage is comp-4 identified by "B".
