        01 CURSOR-1 pic 9(2) identified by "CURSOR-1".
