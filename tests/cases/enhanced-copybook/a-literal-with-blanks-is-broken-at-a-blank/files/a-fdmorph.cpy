        01 REC identified by "REC" count in REC-count.
         02 A pic X(90) value is "one two  three four five six seven 
            eight nine ten   eleven twelve thirteen" identified by "A" 
            count in A-count.
