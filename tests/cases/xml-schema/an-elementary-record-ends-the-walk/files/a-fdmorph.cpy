        01 A pic X(5) identified by "A" count in A-count.
