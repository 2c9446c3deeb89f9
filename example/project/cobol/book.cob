       IDENTIFICATION DIVISION.
       PROGRAM-ID. BOOK.
      * Fills the record of a payment and shows it.
       DATA DIVISION.
       WORKING-STORAGE SECTION.
       COPY "payment-plain.cpy".
       PROCEDURE DIVISION.
           INITIALIZE PAYMENT.
           MOVE "Ada" TO NAME OF DEBTOR.
           MOVE "Grace" TO NAME OF CREDITOR.
           MOVE 12.50 TO AMOUNT.
           DISPLAY FUNCTION TRIM(NAME OF DEBTOR) " pays "
               FUNCTION TRIM(NAME OF CREDITOR) " " AMOUNT.
           STOP RUN.
