       01 order identified by "order" namespace is "urn:example:o"
          count in order-count.
        02 id PIC 9(4) identified by "id" is attribute count in
           id-count.
        02 note identified by "note" count in note-count.
        02 line occurs 3 times identified by "line"
           count in line-count.
         03 sku PIC X(8) identified by "sku" count in sku-count.
         03 price USAGE COMP-1 identified by "price"
            namespace is "urn:example:a-very-long-name-that-continues-on
      -     "-the-next-line" count in price-count.
