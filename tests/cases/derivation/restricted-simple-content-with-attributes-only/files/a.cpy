       01 rec identified by "rec".
        02 fee identified by "fee".
         03 currency PIC X(80) identified by "currency" is attribute.
        02 last PIC S9(18) identified by "last".

