        01 NUMBERS identified by "NUMBERS".
         02 A usage is binary-char identified by "A".
         02 B usage is binary-short identified by "B".
         02 C usage is binary-long unsigned identified by "C".
         02 D usage is binary-double identified by "D".
         02 E usage is binary-int identified by "E".
         02 F usage is binary-c-long identified by "F".
         02 G usage is signed-short identified by "G".
         02 H usage is signed-int identified by "H".
         02 I usage is signed-long identified by "I".
         02 J usage is unsigned-short identified by "J".
         02 K usage is unsigned-int identified by "K".
         02 L usage is unsigned-long identified by "L".
         02 M usage is float-short identified by "M".
         02 N usage is float-long identified by "N".
         02 O usage is float-binary-32 identified by "O".
         02 P usage is float-binary-64 identified by "P".
         02 Q usage is float-binary-128 identified by "Q".
         02 R usage is float-decimal-16 identified by "R".
         02 S usage is float-decimal-34 identified by "S".
         02 T usage is float-extended identified by "T".
         02 U usage is index identified by "U".
