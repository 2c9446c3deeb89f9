       01 e identified by "e".
        02 e identified by "e".
         03 e identified by "e".
          04 e identified by "e".
           05 e identified by "e".
            06 e identified by "e".
             07 e identified by "e".
              08 e identified by "e".
               09 e identified by "e".
                10 e identified by "e".
                 11 e identified by "e".
                  12 e identified by "e".
                   13 e identified by "e".
                    14 e identified by "e".
                     15 e identified by "e".
                      16 e identified by "e".
                       17 e identified by "e".
                        18 e identified by "e".
                         19 e identified by "e".
                          20 e identified by "e".
                           21 e identified by "e".
                            22 e identified by "e".
                             23 e identified by "e".
                              24 e identified by "e".
                               25 e identified by "e".
                                26 e identified by "e".
                                 27 e identified by "e".
                                  28 e identified by "e".
                                   29 e identified by "e".
                                    30 e identified by "e".
                                     31 e identified by "e".
                                      32 e identified by "e".
                                       33 e identified by "e".
                                        34 e identified by "e".
                                         35 e identified by "e".
                                          36 e identified by "e".
                                           37 e identified by "e".
                                            38 e identified by "e".
                                             39 e identified by "e".
                                              40 e identified by "e".
                                               41 e identified by "e".
                                                42 e identified by "e".
                                                 43 e identified by "e".
                                                  44 e identified by 
                                                     "e".
                                                   45 e identified by 
                                                      "e".
                                                    46 e identified by 
                                                       "e".
                                                     47 e identified by 
                                                        "e".
                                                      48 e identified by
                                                          "e".
                                                       49 e identified 
                                                          by "e".

