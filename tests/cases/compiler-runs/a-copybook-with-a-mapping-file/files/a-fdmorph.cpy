        01 COPYBOOK identified by "COPYBOOK" count in COPYBOOK-count.
         02 STREET pic X(30) identified by "STREET" count in 
            STREET-count.
         02 GEO identified by "GEO" count in GEO-count.
          03 LATITUDE pic S9(2)V9(4) sign is leading separate identified
              by "LATITUDE" count in LATITUDE-count.
          03 FILLER pic X(4).
         02 PHONE pic 9(10) occurs 2 times identified by "PHONE" count 
            in PHONE-count.
