        01 REC identified by "REC".
         02 NAME pic X(20) identified by "NAME".
         02 CODE-1 pic 9 occurs 3 times value is 3 identified by 
            "CODE-1".
