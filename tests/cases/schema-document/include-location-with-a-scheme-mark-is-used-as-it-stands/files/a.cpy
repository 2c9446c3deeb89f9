       01 above PIC X(80) identified by "above".

       01 b PIC X(80) identified by "b".

