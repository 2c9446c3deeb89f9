/* fdrec: COBOL records as XML and JSON, and back. For C99 and C++.
 *
 * A layout is made once from a copybook. The functions that convert take one record at
 * a time, and any number of threads may share a layout. Link with -lfdrec.
 *
 *     fdrec_layout *layout = NULL;
 *     if (fdrec_open("order.cpy", "--dialect gnucobol", &layout) == FDREC_OK) {
 *       char text[4096];
 *       size_t used = 0;
 *       if (fdrec_to_xml(layout, record, sizeof record, NULL, text, sizeof text, &used)
 *           == FDREC_OK) {
 *         fwrite(text, 1, used, stdout);
 *       }
 *       fdrec_close(layout);
 *     }
 *
 * No function prints anything, ends the process, handles a signal, or throws. */
#ifndef FDREC_H
#define FDREC_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Names and types are those of C.
 * NOLINTBEGIN(readability-identifier-naming,modernize-use-using) */

/* What all functions but fdrec_message and fdrec_close return. */
enum {
  FDREC_OK = 0,      /* done */
  FDREC_ERROR = 1,   /* the copybook, the record or the document has errors */
  FDREC_USAGE = 2,   /* the options or arguments are wrong */
  FDREC_FAILED = 3,  /* a file cannot be read, or there is no memory */
  FDREC_CAPACITY = 4 /* the output is too small; the needed size is in *used */
};

/* A layout does not change once it is open. */
typedef struct fdrec_layout fdrec_layout;

/* Reads the copybook or program in the file `copybook`, and stores a layout of its
 * records in `*layout`. The caller owns it; it is null unless the status is 0.
 *
 * `options` are those of `fdrec to-xml` and `fdrec from-xml` as on a command line:
 *
 *     "--dialect gnucobol --encoding latin-1 --when 'A: KIND = \"1\"'"
 *
 * Words are separated by blanks. Apostrophes keep everything as it is up to the next
 * one. In quotation marks, and outside, a backslash takes its meaning from the character
 * after it. Null is no options.
 *
 * Options about the file around the records, about outputs and about the number of
 * errors have no effect, but --format decides as on the command line which lengths a
 * record may have, and whether tables with DEPENDING ON take the place of all their
 * occurrences (--odo). --counts has no effect, see `counts`. --schema is refused.
 * With --werror a warning about the copybook is an error. */
int fdrec_open(char const* copybook, char const* options, fdrec_layout** layout);

/* Writes one record of `size` bytes as a document.
 *
 * `record` is the data alone, without a descriptor or a line end. With --format fixed,
 * the default, bytes after the record do not matter; a record that is too short is an
 * error.
 *
 * `counts` is the count record, RECORD-COUNTS in what `fdrec plain` writes: an item
 * PIC 9(9) COMP-5, 4 bytes, for each COUNT IN of the record, in the byte order of
 * --native-endian (by default that of the dialect: little-endian with gnucobol). With
 * counts, they say how many occurrences are written. With null, the clause COUNT IN has
 * no effect.
 *
 * The document is UTF-8. XML is the element of the record alone; with --single, the XML
 * declaration, the element, and a line feed, as in a file. JSON is one value. Nothing
 * follows it: neither a line feed nor a zero byte.
 *
 * `*used` is the size of the document in bytes, also with the status FDREC_CAPACITY;
 * then nothing is written to `out`. With other statuses it is 0. `out` may be null if
 * `capacity` is 0; `used` may be null. */
int fdrec_to_xml(fdrec_layout const* layout, void const* record, size_t size, void const* counts,
                 char* out, size_t capacity, size_t* used);
int fdrec_to_json(fdrec_layout const* layout, void const* record, size_t size, void const* counts,
                  char* out, size_t capacity, size_t* used);

/* Reads a document of `size` bytes with exactly one record.
 *
 * The root of an XML document is the record or an element around it. JSON is one value,
 * on one line. A document with several records, or with none, is an error.
 *
 * `record` takes the bytes of the record as they are in a file, without a descriptor or
 * a line end: with --format fixed always as many. `*used`, and `record` with its
 * `capacity`, are as in fdrec_to_xml.
 *
 * `counts`, if it is not null, takes the count record, see fdrec_to_xml; it must have
 * room for the largest one of the layout. It is written only with the status 0. */
int fdrec_from_xml(fdrec_layout const* layout, char const* document, size_t size, void* record,
                   size_t capacity, size_t* used, void* counts);
int fdrec_from_json(fdrec_layout const* layout, char const* document, size_t size, void* record,
                    size_t capacity, size_t* used, void* counts);

/* Copies the message of the last call of another function in this thread, cut to
 * `capacity` - 1 bytes, and a zero byte. Returns the length of the whole message in
 * bytes, without the zero byte; 0 if there is nothing to say. `out` may be null if
 * `capacity` is 0.
 *
 * A message is UTF-8 and has a line for each error, with a line feed between them:
 *
 *     byte 17 (x'C1404B'), ORDER/LINE[3]/PRICE: error: invalid digit [digit]
 *     12:34, ORDER/LINE[3]/PRICE: error: '12x' is not a number [number]
 *
 * Bytes count from 0, lines and columns of a document from 1. A call that succeeds may
 * leave warnings about the copybook. */
size_t fdrec_message(char* out, size_t capacity);

/* Frees a layout. No other call may use it any longer. Null is allowed. */
void fdrec_close(fdrec_layout* layout);

/* NOLINTEND(readability-identifier-naming,modernize-use-using) */

#ifdef __cplusplus
}
#endif

#endif
