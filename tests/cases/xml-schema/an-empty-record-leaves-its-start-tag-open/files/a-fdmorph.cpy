        01 REC identified by "REC" count in REC-count.
