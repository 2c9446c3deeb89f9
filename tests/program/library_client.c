/* Uses libfdrec.so as a C program does. The arguments are a copybook and one with errors.
 * The status is 0 if everything is as expected. */
#define _POSIX_C_SOURCE 200809L
#include <pthread.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "fdrec.h"

#define CHECK(condition)                                                       \
  do {                                                                         \
    if (!(condition)) {                                                        \
      fprintf(stderr, "line %d: not so: %s\n", __LINE__, #condition);          \
      exit(1);                                                                 \
    }                                                                          \
  } while (0)

#define ROOM 512
#define GUARD 0x7E

static const char kOptions[] = "--dialect gnucobol --encoding latin-1";
static const char kRecord[] = "A12345ab  cd  ef  ";
static const char kXml[] =
    "<ORDER><KIND>A</KIND><PRICE>123.45</PRICE><PART>ab</PART><PART>cd</PART>"
    "<PART>ef</PART></ORDER>";
static const char kJson[] =
    "{\"KIND\":\"A\",\"PRICE\":123.45,\"PART\":[\"ab\",\"cd\",\"ef\"]}";

typedef int ToDocument(const fdrec_layout *, const void *, size_t, const void *, char *,
                       size_t, size_t *);
typedef int ToRecord(const fdrec_layout *, const char *, size_t, void *, size_t, size_t *,
                     void *);

static fdrec_layout *openLayout(const char *copybook, const char *options) {
  fdrec_layout *layout = NULL;
  CHECK(fdrec_open(copybook, options, &layout) == FDREC_OK);
  CHECK(layout != NULL);
  return layout;
}

static int hasMessage(const char *expected) {
  char text[ROOM];
  size_t size = fdrec_message(text, sizeof text);
  int isSame = size == strlen(expected) && strcmp(text, expected) == 0;
  if (!isSame) fprintf(stderr, "found: %s\n", text);
  return isSame;
}

static int mentions(const char *expected) {
  char text[4096];
  int isThere;
  fdrec_message(text, sizeof text);
  isThere = strstr(text, expected) != NULL;
  if (!isThere) fprintf(stderr, "found: %s\n", text);
  return isThere;
}

/* An output is written as a whole or not at all, and nothing after it. */
static void checkWritten(const char *out, size_t written, size_t room) {
  size_t i;
  for (i = written; i < room; ++i) CHECK(out[i] == GUARD);
}

static void checkToDocument(const fdrec_layout *layout, ToDocument *convert,
                            const char *expected) {
  size_t needed = strlen(expected);
  size_t capacity;
  for (capacity = 0; capacity <= needed + 1; ++capacity) {
    char out[ROOM];
    size_t used = 0;
    int status;
    memset(out, GUARD, sizeof out);
    status = convert(layout, kRecord, strlen(kRecord), NULL, out, capacity, &used);
    CHECK(used == needed);
    CHECK(status == (capacity < needed ? FDREC_CAPACITY : FDREC_OK));
    checkWritten(out, status == FDREC_OK ? needed : 0, sizeof out);
    if (status == FDREC_OK) CHECK(memcmp(out, expected, needed) == 0);
  }
}

static void checkToRecord(const fdrec_layout *layout, ToRecord *convert,
                          const char *document) {
  size_t needed = strlen(kRecord);
  size_t capacity;
  for (capacity = 0; capacity <= needed + 1; ++capacity) {
    char out[ROOM];
    size_t used = 0;
    int status;
    memset(out, GUARD, sizeof out);
    status = convert(layout, document, strlen(document), out, capacity, &used, NULL);
    CHECK(used == needed);
    CHECK(status == (capacity < needed ? FDREC_CAPACITY : FDREC_OK));
    checkWritten(out, status == FDREC_OK ? needed : 0, sizeof out);
    if (status == FDREC_OK) CHECK(memcmp(out, kRecord, needed) == 0);
  }
}

static void checkCapacity(const fdrec_layout *layout) {
  size_t used = 0;
  checkToDocument(layout, fdrec_to_xml, kXml);
  checkToDocument(layout, fdrec_to_json, kJson);
  checkToRecord(layout, fdrec_from_xml, kXml);
  checkToRecord(layout, fdrec_from_json, kJson);
  /* Asking for the size alone. */
  CHECK(fdrec_to_xml(layout, kRecord, strlen(kRecord), NULL, NULL, 0, &used) ==
        FDREC_CAPACITY);
  CHECK(used == strlen(kXml));
  CHECK(hasMessage("error: capacity of 0 bytes; expected 95 [capacity]"));
}

/* COUNT IN PART-COUNT: the count record is one number of 4 bytes. */
static void checkCounts(const fdrec_layout *layout) {
  static const char kTwo[] =
      "<ORDER><KIND>A</KIND><PRICE>123.45</PRICE><PART>ab</PART><PART>cd</PART></ORDER>";
  char out[ROOM];
  size_t used = 0;
  int32_t counts[2] = {2, 77};
  CHECK(fdrec_to_xml(layout, kRecord, strlen(kRecord), counts, out, sizeof out, &used) ==
        FDREC_OK);
  CHECK(used == strlen(kTwo) && memcmp(out, kTwo, used) == 0);
  counts[0] = 4;
  CHECK(fdrec_to_xml(layout, kRecord, strlen(kRecord), counts, out, sizeof out, &used) ==
        FDREC_ERROR);
  CHECK(used == 0);
  CHECK(mentions("ORDER/PART: error: ") && mentions("[count]"));
  counts[0] = 55;
  CHECK(fdrec_from_xml(layout, kTwo, strlen(kTwo), out, 3, &used, counts) ==
        FDREC_CAPACITY);
  CHECK(counts[0] == 55);
  CHECK(fdrec_from_xml(layout, kTwo, strlen(kTwo), out, sizeof out, &used, counts) ==
        FDREC_OK);
  CHECK(counts[0] == 2 && counts[1] == 77);
  CHECK(used == 18 && memcmp(out, "A12345ab  cd      ", used) == 0);
}

static void checkMessages(const fdrec_layout *layout) {
  static const char kBadNumber[] = "<ORDER><KIND>A</KIND><PRICE>12x</PRICE></ORDER>";
  static const char kTwice[] = "<ORDER/><ORDER/>";
  static const char kCut[] = "<ORDER><KIND>";
  char out[ROOM];
  char cut[5];
  size_t used = 9;
  CHECK(fdrec_to_xml(layout, "A12?45ab  cd  ef  ", 18, NULL, out, sizeof out, &used) ==
        FDREC_ERROR);
  CHECK(used == 0);
  CHECK(hasMessage("byte 1 (x'31323F3435'), ORDER/PRICE: error: invalid digit [digit]"));
  memset(cut, GUARD, sizeof cut);
  CHECK(fdrec_message(cut, 4) == 65);
  CHECK(memcmp(cut, "byt\0~", 5) == 0);
  CHECK(fdrec_message(NULL, 0) == 65);
  CHECK(fdrec_from_xml(layout, kBadNumber, strlen(kBadNumber), out, sizeof out, &used,
                       NULL) == FDREC_ERROR);
  CHECK(hasMessage("1:22, ORDER/PRICE: error: '12x' is not a number [number]"));
  CHECK(fdrec_from_xml(layout, kTwice, strlen(kTwice), out, sizeof out, &used, NULL) ==
        FDREC_ERROR);
  CHECK(hasMessage("1:9: error: expected one record, found another [single]"));
  CHECK(fdrec_from_xml(layout, " ", 1, out, sizeof out, &used, NULL) == FDREC_ERROR);
  CHECK(hasMessage("error: expected one record, found none [single]"));
  CHECK(fdrec_from_xml(layout, kCut, strlen(kCut), out, sizeof out, &used, NULL) ==
        FDREC_ERROR);
  CHECK(mentions("[xml]"));
  CHECK(fdrec_from_json(layout, "{}\n{}\n", 6, out, sizeof out, &used, NULL) ==
        FDREC_ERROR);
  CHECK(hasMessage("2:1: error: expected one record, found another [single]"));
  CHECK(fdrec_to_xml(layout, kRecord, 4, NULL, out, sizeof out, &used) == FDREC_ERROR);
  CHECK(mentions("[short]"));
  /* A call that succeeds leaves no message of an earlier one. */
  CHECK(fdrec_to_xml(layout, kRecord, strlen(kRecord), NULL, out, sizeof out, NULL) ==
        FDREC_OK);
  CHECK(fdrec_message(NULL, 0) == 0);
}

static void checkArguments(const fdrec_layout *layout) {
  char out[ROOM];
  size_t used = 9;
  CHECK(fdrec_to_xml(NULL, kRecord, 1, NULL, out, sizeof out, &used) == FDREC_USAGE);
  CHECK(used == 0);
  CHECK(fdrec_to_json(layout, NULL, 1, NULL, out, sizeof out, &used) == FDREC_USAGE);
  CHECK(fdrec_from_xml(layout, kXml, 1, NULL, 1, &used, NULL) == FDREC_USAGE);
  CHECK(fdrec_from_json(layout, NULL, 0, NULL, 0, &used, NULL) == FDREC_ERROR);
  fdrec_close(NULL);
}

static void refuse(const char *copybook, const char *options, int expected,
                   const char *message) {
  fdrec_layout *layout = NULL;
  memset(&layout, GUARD, sizeof layout);
  CHECK(fdrec_open(copybook, options, &layout) == expected);
  CHECK(layout == NULL);
  CHECK(mentions(message));
}

static void checkOpen(const char *copybook, const char *wrong) {
  char out[ROOM];
  size_t used = 0;
  fdrec_layout *layout;
  refuse(copybook, "--nonsense", FDREC_USAGE, "--nonsense");
  refuse(copybook, "--when 'ORDER", FDREC_USAGE, "quotation");
  refuse(copybook, "--help", FDREC_USAGE, "--help");
  refuse(copybook, "--encoding klingon", FDREC_USAGE, "klingon");
  refuse(copybook, "--when 'NOBODY: KIND = \"B\"'", FDREC_USAGE, "NOBODY");
  refuse(copybook, "--schema order.xsd", FDREC_USAGE, "--schema");
  refuse(wrong, "", FDREC_ERROR, "error: ");
  refuse("no-such.cpy", NULL, FDREC_FAILED, "no-such.cpy");
  refuse(NULL, NULL, FDREC_USAGE, "null copybook");
  CHECK(fdrec_open(copybook, NULL, NULL) == FDREC_USAGE);

  /* Quotations: the rule is one word, and takes effect. */
  layout = openLayout(copybook,
                      "--dialect=gnucobol --encoding latin-1 "
                      "--when 'ORDER: KIND = \"B\"' --single");
  CHECK(fdrec_to_xml(layout, kRecord, strlen(kRecord), NULL, out, sizeof out, &used) ==
        FDREC_ERROR);
  CHECK(mentions("[view]"));
  CHECK(fdrec_to_xml(layout, "B12345ab  cd  ef  ", 18, NULL, out, sizeof out, &used) ==
        FDREC_OK);
  CHECK(strncmp(out, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ORDER><KIND>B<", 54) == 0);
  CHECK(out[used - 1] == '\n');
  fdrec_close(layout);
}

typedef struct {
  const fdrec_layout *layout;
  char kind;
} Job;

/* Each thread has a record of its own, and meets errors of its own. */
static void *work(void *argument) {
  const Job *job = argument;
  char record[] = "A12345ab  cd  ef  ";
  int i;
  record[0] = job->kind;
  for (i = 0; i < 2000; ++i) {
    char out[ROOM];
    char back[ROOM];
    size_t used = 0;
    size_t size = 0;
    record[5] = (char)('0' + i % 10);
    CHECK(fdrec_to_xml(job->layout, record, 18, NULL, out, sizeof out, &used) == FDREC_OK);
    CHECK(out[13] == job->kind && out[33] == record[5]);
    CHECK(fdrec_from_xml(job->layout, out, used, back, sizeof back, &size, NULL) ==
          FDREC_OK);
    CHECK(size == 18 && memcmp(back, record, size) == 0);
    if (job->kind != 'B') {
      CHECK(fdrec_message(NULL, 0) == 0);
      continue;
    }
    CHECK(fdrec_to_json(job->layout, record, 3, NULL, out, sizeof out, &used) ==
          FDREC_ERROR);
    CHECK(mentions("[short]"));
  }
  return NULL;
}

static void checkThreads(const fdrec_layout *layout) {
  pthread_t threads[2];
  Job jobs[2];
  int i;
  for (i = 0; i < 2; ++i) {
    jobs[i].layout = layout;
    jobs[i].kind = i == 0 ? 'A' : 'B';
    CHECK(pthread_create(&threads[i], NULL, work, &jobs[i]) == 0);
  }
  for (i = 0; i < 2; ++i) CHECK(pthread_join(threads[i], NULL) == 0);
}

int main(int count, char **arguments) {
  fdrec_layout *layout;
  CHECK(count == 3);
  layout = openLayout(arguments[1], kOptions);
  checkCapacity(layout);
  checkCounts(layout);
  checkMessages(layout);
  checkArguments(layout);
  checkThreads(layout);
  fdrec_close(layout);
  checkOpen(arguments[1], arguments[2]);
  return 0;
}
