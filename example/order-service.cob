       IDENTIFICATION DIVISION.
       PROGRAM-ID. ORDER-SERVICE.
      * Reads an order as XML from the standard input, gives a discount
      * on large lines, totals the lines, and writes the order as XML.
       ENVIRONMENT DIVISION.
       INPUT-OUTPUT SECTION.
       FILE-CONTROL.
           SELECT ORDER-FILE ASSIGN TO KEYBOARD
               ORGANIZATION LINE SEQUENTIAL.
       DATA DIVISION.
       FILE SECTION.
       FD  ORDER-FILE.
       01  ORDER-TEXT              PIC X(1000).
       WORKING-STORAGE SECTION.
      * The purchase order and its count record.
       COPY "order-plain.cpy".
       COPY "fdrec.cpy".
       01  ORDER-LAYOUT            USAGE POINTER.
       01  ORDER-SIZE              BINARY-DOUBLE UNSIGNED.
       01  XML-BYTES                PIC X(100000).
       01  XML-CAPACITY            BINARY-DOUBLE UNSIGNED VALUE 100000.
       01  XML-SIZE                BINARY-DOUBLE UNSIGNED.
       01  XML-END                 PIC 9(9) COMP-5 VALUE 1.
       01  USED                    BINARY-DOUBLE UNSIGNED.
       01  RESULT                  PIC S9(9) COMP-5.
       01  MESSAGE-TEXT            PIC X(2000).
       01  MESSAGE-CAPACITY        BINARY-DOUBLE UNSIGNED VALUE 2000.
       01  MESSAGE-LENGTH          PIC S9(9) COMP-5.
       01  LINE-INDEX              PIC 9(9) COMP-5.
       01  INPUT-END               PIC 9 VALUE 0.
       PROCEDURE DIVISION.
       MAIN-PART.
           CALL FDREC-OPEN USING
               BY REFERENCE Z"order.cpy"
               BY REFERENCE Z"--dialect gnucobol --single"
               BY REFERENCE ORDER-LAYOUT
               RETURNING RESULT.
           PERFORM CHECK-RESULT.
           MOVE FUNCTION LENGTH(PURCHASE-ORDER) TO ORDER-SIZE.
           PERFORM READ-DOCUMENT.
           CALL FDREC-FROM-XML USING
               BY VALUE ORDER-LAYOUT
               BY REFERENCE XML-BYTES BY VALUE XML-SIZE
               BY REFERENCE PURCHASE-ORDER  BY VALUE ORDER-SIZE
               BY REFERENCE USED
               BY REFERENCE RECORD-COUNTS
               RETURNING RESULT.
           PERFORM CHECK-RESULT.
           PERFORM CHANGE-ORDER.
           CALL FDREC-TO-XML USING
               BY VALUE ORDER-LAYOUT
               BY REFERENCE PURCHASE-ORDER  BY VALUE ORDER-SIZE
               BY REFERENCE RECORD-COUNTS
               BY REFERENCE XML-BYTES BY VALUE XML-CAPACITY
               BY REFERENCE USED
               RETURNING RESULT.
           PERFORM CHECK-RESULT.
           DISPLAY XML-BYTES(1:USED) WITH NO ADVANCING.
           CALL FDREC-CLOSE USING BY VALUE ORDER-LAYOUT
               RETURNING OMITTED.
           STOP RUN.

      * Large lines cost 5 percent less, and a remark says so. The new
      * status is "processed".
       CHANGE-ORDER.
           MOVE 0 TO TOTAL.
           PERFORM VARYING LINE-INDEX FROM 1 BY 1
                   UNTIL LINE-INDEX > LINE-COUNT
               IF QUANTITY(LINE-INDEX) >= 20
                   MULTIPLY 0.95 BY PRICE(LINE-INDEX) ROUNDED
                   MOVE "Discount of 5 percent" TO REMARK-1(1)
                   MOVE 1 TO REMARK-COUNT-1
               END-IF
               ADD PRICE(LINE-INDEX) TO TOTAL
           END-PERFORM.
           MOVE "P" TO STATUS-VALUE.

       READ-DOCUMENT.
           OPEN INPUT ORDER-FILE.
           PERFORM UNTIL INPUT-END = 1
               READ ORDER-FILE
                   AT END
                       MOVE 1 TO INPUT-END
                   NOT AT END
                       STRING FUNCTION TRIM(ORDER-TEXT TRAILING) X"0A"
                           DELIMITED BY SIZE INTO XML-BYTES
                           WITH POINTER XML-END
                       END-STRING
               END-READ
           END-PERFORM.
           SUBTRACT 1 FROM XML-END GIVING XML-SIZE.
           CLOSE ORDER-FILE.

       CHECK-RESULT.
           IF RESULT NOT = FDREC-OK
               CALL FDREC-MESSAGE USING
                   BY REFERENCE MESSAGE-TEXT  BY VALUE MESSAGE-CAPACITY
                   RETURNING MESSAGE-LENGTH
               DISPLAY MESSAGE-TEXT(1:MESSAGE-LENGTH) UPON SYSERR
               MOVE RESULT TO RETURN-CODE
               STOP RUN
           END-IF.
