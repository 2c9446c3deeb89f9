        01 REC identified by "REC".
         02 HEAD identified by "HEAD".
          03 KIND pic X identified by "KIND".
          03 NOTE identified by "NOTE".
           04 LINE-1 pic X(2) identified by "LINE-1".
         02 FILLER.
          03 PLACE pic X(3) identified by "PLACE".
         02 FILLER pic X(4).
         02 FILLER pic X(5).
