        01 COPYBOOK identified by "COPYBOOK".
         02 STREET pic X(30) identified by "STREET".
         02 CITY pic X(20) identified by "CITY".
