       IDENTIFICATION DIVISION.
       PROGRAM-ID. ORDERS.
      * An order as it lies in the shop's file: parties, lines with
      * codes and amounts, and remarks in several places.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  PURCHASE-ORDER.
           05  ORDER-NUMBER         PIC 9(8).
           05  ORDER-DATE           PIC X(10).
           05  ORDER-STATUS         PIC X.
           05  BUYER.
               10  BUYER-NAME       PIC X(35).
               10  BUYER-CITY       PIC X(40).
           05  LINE-COUNT           PIC 9(4) COMP.
           05  ORDER-LINE OCCURS 1 TO 50 TIMES
                   DEPENDING ON LINE-COUNT.
               10  ARTICLE          PIC X(12).
               10  QUANTITY         PIC 9(9) COMP-3.
               10  PRICE            PIC S9(9)V99 COMP-3.
               10  REMARK           PIC X(40) OCCURS 3 TIMES.
           05  ORDER-TOTAL          PIC S9(9)V99 COMP-3.
       PROCEDURE DIVISION.
           STOP RUN.
