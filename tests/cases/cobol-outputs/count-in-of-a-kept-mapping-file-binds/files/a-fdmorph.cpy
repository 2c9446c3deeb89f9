        01 ORDER identified by "ORDER".
         02 CODE pic X(5) identified by "CODE".
