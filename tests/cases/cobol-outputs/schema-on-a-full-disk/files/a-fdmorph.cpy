        01 ORDER identified by "ORDER" count in ORDER-count.
         02 CODE pic X(5) identified by "CODE" count in CODE-count.
