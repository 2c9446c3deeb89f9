       01 ORDER identified by "order" count in ORDER-count.
          02 ID PIC X(8) identified by "id" is attribute.
          02 customer--name PIC X(40) identified by "name"
             count in customer--name-count.
          02 note identified by "note" count in note-count.
          02 amount PIC S9(9)V9(0) identified by "amount".
          02 item occurs 9 times identified by "item"
             count in item-count.
             03 code PIC X(3) identified by "code" count in code-count.
