        01 W-ORDER identified by "ORDER" count in W-ORDER-count.
         02 W-CODE pic X(5) identified by "CODE" count in W-CODE-count.
