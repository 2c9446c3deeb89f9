        01 REC identified by "REC".
         02 A pic X(5) identified by "A".
