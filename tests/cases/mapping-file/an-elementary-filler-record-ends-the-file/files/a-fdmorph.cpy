        01 FILLER pic X(2).
