#include <gtest/gtest.h>

#include "support/decoded.h"

namespace fdmorph::document {
namespace {

using namespace std::string_view_literals;

constexpr char kTable[] =
    "01 R. 02 N PIC 9. 02 T OCCURS 1 TO 3 DEPENDING ON N. 03 A PIC X. 03 B PIC X. 02 Z PIC X.";

TEST(Occurrences, TableOfLargestSizeKeepsWhatFollowsInItsPlace) {
  Decoded record(kTable);
  EXPECT_EQ(record.xml("1ab....z"), "<R><N>1</N><T><A>a</A><B>b</B></T><Z>z</Z></R>");
}

TEST(Occurrences, WhatFollowsAShiftedTableShifts) {
  Decoded record(kTable);
  record.rules.tables = layout::TableForm::shifted;
  EXPECT_EQ(record.xml("1abz"), "<R><N>1</N><T><A>a</A><B>b</B></T><Z>z</Z></R>");
  EXPECT_EQ(record.xml("2abcdz"),
            "<R><N>2</N><T><A>a</A><B>b</B></T><T><A>c</A><B>d</B></T><Z>z</Z></R>");
}

TEST(Occurrences, TablesInShiftedTablesShiftToo) {
  Decoded record(
      "01 R. 02 N PIC 9. 02 T OCCURS 0 TO 3 DEPENDING ON N. 03 M PIC 9."
      " 03 A PIC X OCCURS 0 TO 2 DEPENDING ON M. 02 Z PIC X.");
  record.rules.tables = layout::TableForm::shifted;
  EXPECT_EQ(record.xml("30"
                       "1a"
                       "2bc"
                       "z"),
            "<R><N>3</N><T><M>0</M></T><T><M>1</M><A>a</A></T><T><M>2</M><A>b</A><A>c</A></T>"
            "<Z>z</Z></R>");
}

TEST(Occurrences, CounterOutsideOfItsBoundsIsAnErrorAtTheCounter) {
  EXPECT_EQ(Decoded(kTable).xml("4abcdefz"), "odo 0 R/T\n");
  EXPECT_EQ(Decoded(kTable).xml("0abcdefz"), "odo 0 R/T\n");
}

TEST(Occurrences, CounterThatIsNoNumberIsToldOnce) {
  EXPECT_EQ(Decoded(kTable).xml("?abcdefz"), "digit 0 R/N\n");
}

TEST(Occurrences, NothingIsToldOfWhatFollowsABadCounterOfAShiftedTable) {
  Decoded record(
      "01 R. 02 P PIC 9. 02 N PIC 9. 02 T PIC 9 OCCURS 1 TO 3 DEPENDING ON N. 02 Z PIC 9.");
  record.rules.tables = layout::TableForm::shifted;
  EXPECT_EQ(record.xml("?9abc"), "digit 0 R/P\nodo 1 R/T\n");
}

TEST(Occurrences, GivenCounterStandsForOneThatIsNotInTheRecord) {
  Decoded record("01 R. 02 T PIC X OCCURS 1 TO 3 DEPENDING ON EIBCALEN.");
  record.rules.counters = {{"EIBCALEN", 2}};
  EXPECT_EQ(record.xml("abc"), "<R><T>a</T><T>b</T></R>");
}

TEST(Occurrences, CounterThatIsNotInTheRecordIsAnErrorOfTheLayout) {
  Decoded record("01 R.\n 02 T PIC X OCCURS 1 TO 3 DEPENDING ON EIBCALEN.");
  EXPECT_EQ(record.xml("abc"),
            "2: counter 'EIBCALEN' is not in the record; --counter gives its value [layout]\n");
}

TEST(Occurrences, ShiftedTableInARedefinitionIsAnErrorOfTheLayout) {
  Decoded record(
      "01 R. 02 N PIC 9. 02 X PIC X(3). 02 G REDEFINES X.\n"
      " 03 T PIC X OCCURS 1 TO 3 DEPENDING ON N.");
  record.rules.tables = layout::TableForm::shifted;
  EXPECT_EQ(record.xml("1abc"),
            "2: table 'T' with DEPENDING ON shares its storage with other items; --odo max is "
            "required [layout]\n");
}

TEST(Occurrences, CountsSayHowManyPartsThereAre) {
  Decoded record(
      "01 R IDENTIFIED BY 'r'. 02 A PIC X IDENTIFIED BY 'a' COUNT IN CA."
      " 02 T PIC X OCCURS 3 IDENTIFIED BY 't' COUNT IN CT.");
  record.rules.hasCounts = true;
  EXPECT_EQ(record.xml("a123", "\0\0\0\0\2\0\0\0"sv), "<r><t>1</t><t>2</t></r>");
  EXPECT_EQ(record.xml("a123", "\1\0\0\0\0\0\0\0"sv), "<r><a>a</a></r>");
  EXPECT_EQ(record.xml("a123", "\0\0\0\0\0\0\0\0"sv), "<r/>");
}

TEST(Occurrences, CountAboveWhatTheItemHoldsIsAnError) {
  Decoded record(
      "01 R IDENTIFIED BY 'r'. 02 A PIC X IDENTIFIED BY 'a' COUNT IN CA."
      " 02 T PIC X OCCURS 3 IDENTIFIED BY 't' COUNT IN CT.");
  record.rules.hasCounts = true;
  EXPECT_EQ(record.xml("a123", "\2\0\0\0\4\0\0\0"sv), "count 0 r/a\ncount 1 r/t\n");
}

TEST(Occurrences, CountsInATableAreThoseOfEachOccurrence) {
  Decoded record(
      "01 R IDENTIFIED BY 'r'. 02 G OCCURS 2 IDENTIFIED BY 'g' COUNT IN CG."
      " 03 A PIC X IDENTIFIED BY 'a' COUNT IN CA.");
  record.rules.hasCounts = true;
  EXPECT_EQ(record.xml("12", "\2\0\0\0\0\0\0\0\1\0\0\0"sv), "<r><g/><g><a>2</a></g></r>");
}

TEST(Occurrences, PartsAsIfAbsentAreLeftOut) {
  Decoded record("01 R. 02 A PIC X(2). 02 B PIC 9(2). 02 C PIC X OCCURS 3. 02 D PIC X VALUE 'd'.");
  record.rules.omitsEmpty = true;
  EXPECT_EQ(record.xml("  00 x d"), "<R><C/><C>x</C></R>");
  EXPECT_EQ(record.xml("  00    "), "<R><D/></R>");
}

TEST(Occurrences, GroupAsIfAbsentIsLeftOutWithAllItsParts) {
  Decoded record("01 R. 02 G. 03 A PIC X. 03 FILLER PIC X. 02 B PIC X.");
  record.rules.omitsEmpty = true;
  EXPECT_EQ(record.xml("  b"), "<R><B>b</B></R>");
  EXPECT_EQ(record.xml(" .b"), "<R><G/><B>b</B></R>");
}

TEST(Occurrences, GroupWithItsValueIsLeftOut) {
  Decoded record("01 R. 02 G VALUE 'xy'. 03 A PIC X. 03 B PIC X. 02 C PIC X.");
  record.rules.omitsEmpty = true;
  EXPECT_EQ(record.xml("xyc"), "<R><C>c</C></R>");
  EXPECT_EQ(record.xml("x c"), "<R><G><B/></G><C>c</C></R>");
}

TEST(Occurrences, LaterViewsAreNeverLeftOut) {
  Decoded record("01 R. 02 K PIC X. 02 A PIC X. 02 B REDEFINES A PIC X.");
  record.rules.omitsEmpty = true;
  record.when = {"B: K = 'b'", "A:"};
  EXPECT_EQ(record.xml("b "), "<R><K>b</K><B/></R>");
  EXPECT_EQ(record.xml("a "), "<R><K>a</K></R>");
}

TEST(Occurrences, ShortRecordIsAnErrorUnlessItsMissingOccurrencesAreNotThere) {
  Decoded record("01 R. 02 N PIC 9. 02 T PIC X OCCURS 1 TO 3 DEPENDING ON N.");
  EXPECT_EQ(record.xml("2ab"), "<R><N>2</N><T>a</T><T>b</T></R>");
  EXPECT_EQ(record.xml("3ab"), "short 0 \n");
  EXPECT_EQ(record.xml("1abcd"), "long 0 \n");
}

TEST(Occurrences, ShortRecordIsFilledWithAbsentItems) {
  Decoded record("01 R. 02 A PIC X(2). 02 B PIC 9(2). 02 C PIC X VALUE 'c'.");
  record.lengths.padsShort = true;
  EXPECT_EQ(record.xml("a"), "<R><A>a</A><B>0</B><C>c</C></R>");
}

TEST(Occurrences, RecordMayEndWhereItsViewEnds) {
  Decoded record("01 R. 02 K PIC X. 02 A PIC X(4). 02 B REDEFINES A PIC X(2).");
  record.when = {"B: K = 'b'", "A:"};
  EXPECT_EQ(record.xml("bxy"), "<R><K>b</K><B>xy</B></R>");
  EXPECT_EQ(record.xml("axy"), "short 0 \n");
}

TEST(Occurrences, ErrorsAreInTheOrderOfTheRecordAndCountOccurrencesInTheirPaths) {
  Decoded record("01 R. 02 T OCCURS 2. 03 A PIC 9. 03 B PIC 9 OCCURS 2.");
  EXPECT_EQ(record.xml("1?2a34"), "digit 1 R/T[1]/B[1]\ndigit 3 R/T[2]/A\n");
}

// No rule holds because K is no number, which is told.
TEST(Occurrences, ViewIsNotToldBecauseOfAnItemThatTestsLookAt) {
  Decoded record("01 R. 02 A PIC X. 02 B REDEFINES A PIC 9. 02 K PIC 9. 02 Z PIC 9.");
  record.when = {"A: K = 1", "B: K = 2"};
  EXPECT_EQ(record.xml("x?1"), "digit 1 R/K\n");
  EXPECT_EQ(record.xml("x?x"), "digit 1 R/K\ndigit 2 R/Z\n");
  EXPECT_EQ(record.xml("x3x"), "view 0 R\ndigit 2 R/Z\n");
}

// The item comes after a table of unknown size.
TEST(Occurrences, ViewIsNotToldBecauseOfACounter) {
  Decoded record(
      "01 R. 02 A PIC X. 02 B REDEFINES A PIC 9. 02 N PIC 9. 02 T PIC X OCCURS 1 TO 3"
      " DEPENDING ON N. 02 K PIC 9.");
  record.rules.tables = layout::TableForm::shifted;
  record.when = {"A: K = 1", "B: K = 2"};
  EXPECT_EQ(record.xml("x1a3"), "view 0 R\n");
  EXPECT_EQ(record.xml("x9a1"), "odo 1 R/T\n");
}

// Here the item is not in the document, so its error is not told.
TEST(Occurrences, ViewIsToldIfTheItemThatTestsLookAtIsNotInTheDocument) {
  Decoded record(
      "01 R IDENTIFIED BY 'r'. 02 A PIC X IDENTIFIED BY 'a'. 02 B REDEFINES A PIC 9"
      " IDENTIFIED BY 'b'. 02 K PIC 9. 02 X PIC X. 02 Y REDEFINES X IDENTIFIED BY 'y' PIC 9.");
  record.when = {"A: K = 1", "B: Y = 2", "X:"};
  EXPECT_EQ(record.xml("x??"), "view 0 r\n");
}

// A table of a million wrong items takes no time to speak of.
TEST(Occurrences, FirstTenErrorsOfManyAreTold) {
  Decoded record(
      "01 R. 02 A PIC 9 OCCURS 1000000. 02 N PIC 9. 02 T PIC X OCCURS 2 TO 3"
      " DEPENDING ON N.");
  std::string errors = record.xml(std::string(1'000'000, '?') + "1abc");
  EXPECT_EQ(std::ranges::count(errors, '\n'), 10);
  EXPECT_TRUE(errors.starts_with("digit 0 R/A[1]\ndigit 1 R/A[2]\n"));
  EXPECT_TRUE(errors.ends_with("digit 9 R/A[10]\n"));
}

TEST(Occurrences, AtMostTenErrorsAreTold) {
  Decoded record("01 R. 02 A PIC 9 OCCURS 20.");
  std::string errors = record.xml(std::string(20, '?'));
  EXPECT_EQ(std::ranges::count(errors, '\n'), 10);
  EXPECT_TRUE(errors.starts_with("digit 0 R/A[1]\n"));
}

}  // namespace
}  // namespace fdmorph::document
