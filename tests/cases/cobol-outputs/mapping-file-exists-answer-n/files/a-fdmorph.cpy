        01 ORDER identified by "order" count in order-count.
         02 CODE pic X(5) identified by "code" is attribute.
