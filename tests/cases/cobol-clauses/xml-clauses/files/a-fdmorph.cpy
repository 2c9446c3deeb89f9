        01 ORDER-REC identified by "ORDER-REC".
         02 SKU pic X(8) identified by "SKU".
         02 VER pic X(3) identified by "VER".
