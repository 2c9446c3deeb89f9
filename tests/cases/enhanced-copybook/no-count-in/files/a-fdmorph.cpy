        01 REC identified by "REC".
         02 A pic X(5) identified by "A".
         02 B pic 9(3) occurs 3 times identified by "B".
