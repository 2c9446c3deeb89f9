      * fdrec: COBOL records as XML and JSON, and back.
      *
      * COPY "fdrec.cpy" in the WORKING-STORAGE SECTION, and compile the
      * program with cobc -fstatic-call -lfdrec. fdrec.h describes the
      * functions.
      *
      * Texts of FDREC-OPEN end with a zero byte: Z"order.cpy".
      * LAYOUT is USAGE POINTER. Sizes are BINARY-DOUBLE UNSIGNED, an
      * item of 8 bytes. COUNTS is RECORD-COUNTS of `fdrec plain`;
      * OMITTED is none. All calls but FDREC-MESSAGE and FDREC-CLOSE
      * return a status, PIC S9(9) COMP-5.
      *
      *    CALL FDREC-OPEN USING
      *        BY REFERENCE copybook  BY REFERENCE options-or-OMITTED
      *        BY REFERENCE layout    RETURNING status
      *    CALL FDREC-TO-XML USING  (FDREC-TO-JSON is the same)
      *        BY VALUE layout        BY REFERENCE record
      *        BY VALUE record-size   BY REFERENCE counts-or-OMITTED
      *        BY REFERENCE document  BY VALUE capacity
      *        BY REFERENCE used      RETURNING status
      *    CALL FDREC-FROM-XML USING  (FDREC-FROM-JSON is the same)
      *        BY VALUE layout        BY REFERENCE document
      *        BY VALUE document-size BY REFERENCE record
      *        BY VALUE capacity      BY REFERENCE used
      *        BY REFERENCE counts-or-OMITTED
      *        RETURNING status
      *    CALL FDREC-MESSAGE USING
      *        BY REFERENCE text      BY VALUE capacity
      *        RETURNING length
      *    CALL FDREC-CLOSE USING BY VALUE layout RETURNING OMITTED
      *
      * The text of FDREC-MESSAGE ends with a zero byte.

      * The names of the functions.
       01  FDREC-OPEN CONSTANT AS "fdrec_open".
       01  FDREC-TO-XML CONSTANT AS "fdrec_to_xml".
       01  FDREC-TO-JSON CONSTANT AS "fdrec_to_json".
       01  FDREC-FROM-XML CONSTANT AS "fdrec_from_xml".
       01  FDREC-FROM-JSON CONSTANT AS "fdrec_from_json".
       01  FDREC-MESSAGE CONSTANT AS "fdrec_message".
       01  FDREC-CLOSE CONSTANT AS "fdrec_close".

      * A status: done; errors in the copybook, the record or the
      * document; wrong options or arguments; a file cannot be read, or
      * there is no memory; the output is too small, and used has the
      * size that it needs.
       01  FDREC-OK CONSTANT AS 0.
       01  FDREC-ERROR CONSTANT AS 1.
       01  FDREC-USAGE CONSTANT AS 2.
       01  FDREC-FAILED CONSTANT AS 3.
       01  FDREC-CAPACITY CONSTANT AS 4.
