// Copybooks without XML clauses, and their count records.
#include "copybook/plain_copybook.h"

#include <gtest/gtest.h>

#include "support/copybook_round_trip.h"

namespace fdmorph::copybook {
namespace {

/// A source in free format and its plain copybook, in free format.
struct Plain {
  explicit Plain(std::string const& source, std::string const& copyName = {},
                 compiler::Dialect dialect = compiler::Dialect::gnuCobol)
      : before(source, LineForm::free, dialect) {
    EXPECT_EQ(before.errors(), "");
    text = writePlainCopybook(recordsOf(before.source->data().workingStorage),
                              {LineForm::free, copyName}, dialect, before.source->diagnostics());
  }

  /// The messages with these codes, each "LINE: text".
  std::string reports() const {
    std::string found;
    for (auto const* each : before.source->diagnostics().inSourceOrder()) {
      std::size_t line = before.source->sources().locate(each->place).line;
      found += std::to_string(line) + ": " + each->text + "\n";
    }
    return found;
  }

  MemorySource before;
  std::string text;
};

TEST(PlainCopybook, IsTheSourceWithoutXmlClauses) {
  Plain plain("01 R IDENTIFIED BY \"r\".\n 05 A PIC X IDENTIFIED BY \"a\" IS ATTRIBUTE.\n");
  EXPECT_EQ(plain.text, "01 R.\n    05 A PIC X.\n");
  EXPECT_EQ(plain.reports(), "");
}

TEST(PlainCopybook, ChangesNames) {
  Plain plain("01 R.\n 05 A--B PIC X.\n 05 A-B PIC X.\n 05 C REDEFINES A-B PIC X.\n");
  EXPECT_EQ(plain.text,
            "01 R.\n*> Source name: A--B\n    05 A-B-2 PIC X.\n    05 A-B PIC X.\n"
            "    05 C REDEFINES A-B PIC X.\n");
  EXPECT_EQ(plain.reports(), "2: name 'A--B' has two hyphens in a row; it becomes 'A-B-2'\n");
}

TEST(PlainCopybook, LetsReferencesFollowNames) {
  Plain plain(
      "01 R.\n 05 COUNT PIC 9.\n 05 DATE OCCURS 1 TO 3 DEPENDING ON COUNT\n"
      "  ASCENDING KEY TIME INDEXED BY LINE.\n  10 TIME PIC 9.\n");
  EXPECT_EQ(plain.text,
            "01 R.\n*> Source name: COUNT\n    05 COUNT-X PIC 9.\n"
            "*> Source name: DATE\n*> Source name: LINE\n"
            "    05 DATE-X OCCURS 1 TO 3 TIMES DEPENDING ON COUNT-X ASCENDING KEY TIME-X\n"
            "        INDEXED BY LINE-X.\n"
            "*> Source name: TIME\n      10 TIME-X PIC 9.\n");
}

TEST(PlainCopybook, LeavesEmptyItemsOut) {
  Plain plain(
      "01 R.\n 05 A IDENTIFIED BY \"a\".\n 05 B REDEFINES A PIC X.\n 05 C REDEFINES A PIC X.\n"
      " 05 G.\n  10 D PIC X OCCURS 0.\n 05 E PIC S9(3)V9(0).\n");
  EXPECT_EQ(plain.text,
            "01 R.\n    05 B PIC X.\n    05 C REDEFINES B PIC X.\n    05 E PIC S9(3).\n");
  EXPECT_EQ(plain.reports(),
            "2: 'A' has no storage and is left out\n5: 'G' has no storage and is left out\n");
}

TEST(PlainCopybook, KeepsConditionsOfGroups) {
  Plain plain("01 R.\n 05 G.\n  88 C VALUE 'a'.\n  88 c VALUE 'b'.\n  10 A PIC X.\n");
  EXPECT_EQ(plain.text,
            "01 R.\n    05 G.\n      88 C VALUE 'a'.\n*> Source name: c\n      88 c-2 VALUE 'b'.\n"
            "      10 A PIC X.\n");
}

TEST(PlainCopybook, MakesRoomForLargerRedefinitions) {
  Plain plain("01 R.\n 05 A PIC X.\n 05 B REDEFINES A PIC X(5).\n 05 C PIC X.\n");
  EXPECT_EQ(plain.text,
            "01 R.\n    05 A-AREA PIC X(5).\n    05 A REDEFINES A-AREA PIC X.\n"
            "    05 B REDEFINES A-AREA PIC X(5).\n    05 C PIC X.\n");
  MemorySource after(plain.text, LineForm::free);
  EXPECT_EQ(after.errors(), "");
}

TEST(PlainCopybook, WarnsOfWhatCompilersRefuse) {
  Plain tables(
      "01 R.\n 05 N PIC 9.\n 05 T OCCURS 2.\n  10 U PIC X OCCURS 1 TO 2 DEPENDING ON N.\n"
      " 05 V PIC X OCCURS 1 TO 2 DEPENDING ON N.\n 05 W PIC X.\n"
      " 05 G.\n  10 Y PIC X OCCURS 1 TO 2 DEPENDING ON N.\n 05 Z REDEFINES G PIC X.\n");
  EXPECT_EQ(tables.reports(),
            "4: 'U' varies in size in a table, which GnuCOBOL does not compile\n"
            "5: 'V' varies in size before other items, which GnuCOBOL compiles only with -std=ibm "
            "and the like\n");
  Plain native("01 A PIC 99 COMP-5.\n01 B PIC 9(3) COMP-5.\n", {}, compiler::Dialect::ibm);
  EXPECT_EQ(native.reports(),
            "1: 'A' has 2 bytes here and 1 byte in GnuCOBOL, also with -std=ibm\n");
}

TEST(CountRecordText, NestsCounts) {
  Plain plain(
      "01 R COUNT IN R-COUNT.\n 05 A PIC X COUNT IN DATE.\n 05 T OCCURS 3 COUNT IN T-COUNT.\n"
      "  10 B PIC X COUNT IN X.\n  10 C PIC X COUNT IN x.\n");
  EXPECT_EQ(plain.text,
            "01 R.\n    05 A PIC X.\n    05 T OCCURS 3 TIMES.\n      10 B PIC X.\n"
            "      10 C PIC X.\n"
            "01 RECORD-COUNTS.\n"
            "    02 R-COUNT PIC 9(9) USAGE COMP-5.\n"
            "    02 R-COUNTS.\n"
            "*> Source name: DATE\n"
            "      03 DATE-X PIC 9(9) USAGE COMP-5.\n"
            "      03 T-COUNT PIC 9(9) USAGE COMP-5.\n"
            "      03 T-COUNTS OCCURS 3 TIMES.\n"
            "        04 X PIC 9(9) USAGE COMP-5.\n"
            "*> Source name: x\n"
            "        04 x-2 PIC 9(9) USAGE COMP-5.\n");
}

TEST(CountRecordText, HasNamesOfItsOwn) {
  Plain plain("01 R.\n 05 A PIC X COUNT IN A-C.\n", "OUT");
  EXPECT_EQ(plain.text,
            "01 OUT.\n    02 R.\n      06 A PIC X.\n"
            "01 OUT-COUNTS.\n    02 A-C PIC 9(9) USAGE COMP-5.\n");
  Plain two("01 R.\n 05 A PIC X COUNT IN A-C.\n01 S.\n 05 A PIC X COUNT IN A-C.\n");
  EXPECT_EQ(two.text,
            "01 R.\n    05 A PIC X.\n01 S.\n    05 A PIC X.\n"
            "01 RECORD-COUNTS.\n    02 A-C PIC 9(9) USAGE COMP-5.\n"
            "*> Counts of S\n"
            "01 RECORD-COUNTS-2.\n    02 A-C PIC 9(9) USAGE COMP-5.\n");
}

}  // namespace
}  // namespace fdmorph::copybook
