        01 FREC1 identified by "FREC1" count in FREC1-count.
         02 A pic X(5) identified by "A" count in A-count.
