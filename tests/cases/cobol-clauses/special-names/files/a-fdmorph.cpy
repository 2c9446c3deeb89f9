        01 REC identified by "REC".
         02 A pic FF.FF9,99 identified by "A".
         02 B pic S9V9 value is -1,5 identified by "B".
