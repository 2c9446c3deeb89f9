        01 ORDER-RECORD pic X(5) identified by "ORDER-RECORD".
