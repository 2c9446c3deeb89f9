        01 REC identified by "REC".
         02 A pic X identified by "A".
