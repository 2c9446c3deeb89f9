        01 DFHCOMMAREA identified by "DFHCOMMAREA".
         02 CUSTOMER-NO pic 9(6) identified by "CUSTOMER-NO".
