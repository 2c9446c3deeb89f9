        01 REC identified by "REC".
         02 CUST-NAME pic X(40) identified by "CUST-NAME".
         02 COUNTRY pic X(2) identified by "COUNTRY".
