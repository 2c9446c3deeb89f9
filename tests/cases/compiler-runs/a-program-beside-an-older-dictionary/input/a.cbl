       IDENTIFICATION DIVISION.
       PROGRAM-ID. ORDERS.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       01  ORDER-REC.
           05  ORDER-NO            PIC 9(6).
           05  CUSTOMER            PIC X(20).
           05  LINE-CNT            PIC 9(2) COMP.
           05  TOTAL               PIC S9(7)V99 COMP-3.
           05  ORDER-LINE          OCCURS 1 TO 20 TIMES
                                   DEPENDING ON LINE-CNT.
               10  ARTICLE         PIC X(8).
               10  PRICE           PIC S9(5)V99 COMP-3.
               10  NOTE            PIC X(10) OCCURS 3 TIMES.
           05  SHIP-DATE.
               10  SHIP-YEAR       PIC 9(4).
               10  FILLER          PIC X VALUE "-".
               10  SHIP-DAY        PIC 9(3).
       01  OTHER-REC               PIC X(9).
       PROCEDURE DIVISION.
           STOP RUN.
