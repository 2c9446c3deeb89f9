// Sizes and places of items.

#include <gtest/gtest.h>

#include "semantics/layout.h"
#include "source/diagnostic_output.h"
#include "support/compiled_source.h"
#include "support/item_builder.h"

namespace fdmorph::compiler {
namespace {

TEST(Layout, OfBinaryItemsFollowsTheirDigits) {
  for (auto [digits, size] : {std::pair{"2", "1"},
                              {"3", "2"},
                              {"4", "2"},
                              {"5", "4"},
                              {"9", "4"},
                              {"10", "8"},
                              {"18", "8"}}) {
    EXPECT_EQ(lengthOf("01 A PIC S9(" + std::string(digits) + ") COMP.", "A"), size);
  }
}

TEST(Layout, OfCompXTakesAsFewBytesAsItCan) {
  EXPECT_EQ(lengthOf("01 A PIC 9(5) COMP-X.", "A"), "3");
  EXPECT_EQ(lengthOf("01 A PIC 9(7) COMP-X.", "A"), "3");
  // The sign takes none of its own.
  EXPECT_EQ(lengthOf("01 A PIC S9(7) COMP-X.", "A"), "3");
  EXPECT_EQ(lengthOf("01 A PIC X(3) COMP-X.", "A"), "3");
  EXPECT_EQ(lengthOf("01 A PIC X(3) COMP-5.", "A"), "4");
}

TEST(Layout, OfPackedItemsHasTwoDigitsAByteAndASign) {
  EXPECT_EQ(lengthOf("01 A PIC S9(7)V99 COMP-3.", "A"), "5");
  EXPECT_EQ(lengthOf("01 A PIC 9(4) PACKED-DECIMAL.", "A"), "3");
  EXPECT_EQ(lengthOf("01 A PIC 9(4) COMP-6.", "A"), "2");
}

TEST(Layout, OfFixedUsages) {
  EXPECT_EQ(lengthOf("01 A COMP-1.", "A"), "4");
  EXPECT_EQ(lengthOf("01 A COMP-2.", "A"), "8");
  EXPECT_EQ(lengthOf("01 A INDEX.", "A"), "4");
  EXPECT_EQ(lengthOf("01 A POINTER.", "A"), "8");
  EXPECT_EQ(lengthOf("01 A BINARY-INT.", "A"), "4");
  EXPECT_EQ(lengthOf("01 A FLOAT-DECIMAL-34.", "A"), "16");
  EXPECT_EQ(lengthOf("01 A HANDLE OF FONT LARGE-FONT.", "A"), "4");
}

TEST(Layout, OfBitsHasEightInAByte) {
  EXPECT_EQ(lengthOf("01 A PIC 1(8) USAGE BIT.", "A"), "1");
  EXPECT_EQ(lengthOf("01 A PIC 1(9) USAGE IS BIT.", "A"), "2");
  EXPECT_EQ(lengthOf("01 A PIC 1(3).", "A"), "3");
}

TEST(Layout, OfATableInATableCountsFromTheGroupThatEndedLast) {
  // H is of 2 bytes and lies at an even place in F, which repeats alike. C ends
  // after F: H counts for it, and it is filled up to 14 bytes.
  char const* lines =
      "01 B.\n 05 A PIC X(6).\n 05 C OCCURS 2.\n  10 D PIC X.\n  10 F OCCURS 3.\n"
      "   15 G PIC X.\n   15 H PIC 9(4) COMP SYNC.";
  EXPECT_EQ(lengthOf(lines, "C"), "14");
  EXPECT_EQ(lengthOf(lines, "B"), "34");
}

TEST(Layout, OfNationalItemsHasTwoBytesACharacter) {
  EXPECT_EQ(lengthOf("01 A PIC N(5).", "A"), "10");
}

TEST(Layout, OfASeparateSignTakesAByte) {
  EXPECT_EQ(lengthOf("01 A PIC S9(3) SIGN LEADING SEPARATE.", "A"), "4");
  // The sign of the group is that of its signed items of usage DISPLAY.
  char const* group =
      "01 G SIGN TRAILING SEPARATE.\n 05 A PIC S9(3).\n"
      " 05 B PIC 9(3).\n 05 C PIC S9(3) COMP.";
  EXPECT_EQ(lengthOf(group, "A"), "4");
  EXPECT_EQ(lengthOf(group, "B"), "3");
  EXPECT_EQ(lengthOf(group, "C"), "2");
}

TEST(Layout, HandsTheUsageOfAGroupOn) {
  EXPECT_EQ(lengthOf("01 G COMP-3.\n 05 A PIC 9(5).", "A"), "3");
}

TEST(Layout, OfAGroupHoldsItsTables) {
  EXPECT_EQ(lengthOf("01 G.\n 05 A PIC X(3) OCCURS 4.\n 05 B OCCURS 2.\n  10 C PIC X(5).", "G"),
            "22");
}

TEST(Layout, OfARedefinitionTakesNoRoom) {
  EXPECT_EQ(lengthOf("01 G.\n 05 A PIC X(8).\n 05 B REDEFINES A PIC 9(4).\n 05 C PIC X.", "G"),
            "9");
}

TEST(Layout, OfALargerRedefinitionGrowsTheGroup) {
  CompilationResult result = compile("01 G.\n 05 A PIC X(2).\n 05 B REDEFINES A PIC X(5).");
  EXPECT_EQ(attributeOf(result.dictionary, "G", "length"), "5");
  EXPECT_NE(result.diagnostics.find("[redefines-size]"), std::string::npos);
}

TEST(Layout, MovesSynchronizedItemsUp) {
  // 1 + 3 of slack + 4, and 1 + 7 of slack + 8.
  EXPECT_EQ(lengthOf("01 G.\n 05 A PIC X.\n 05 B PIC 9(9) COMP SYNC.", "G"), "8");
  EXPECT_EQ(lengthOf("01 G.\n 05 A PIC X.\n 05 B COMP-2 SYNC.", "G"), "16");
  EXPECT_EQ(lengthOf("01 G.\n 05 A PIC X.\n 05 B PIC 9(5) COMP-3 SYNC.", "G"), "4");
}

TEST(Layout, FillsOccurrencesOfSynchronizedItemsUp) {
  // 4 and 1, then 3 so that the next 4 lies alike.
  EXPECT_EQ(lengthOf("01 G.\n 05 T OCCURS 3.\n  10 A PIC 9(9) COMP SYNC.\n  10 B PIC X.", "T"),
            "8");
}

class LayoutOffsets : public testing::Test {
 protected:
  void layOutRecord() {
    layOut(*builder.data.workingStorage.first, Dialect::gnuCobol, diagnostics);
    EXPECT_EQ(printDiagnostics(diagnostics), "");
  }

  MemoryTree tree;
  Sources sources{tree};
  Diagnostics diagnostics{sources};
  ItemBuilder builder;
};

TEST_F(LayoutOffsets, OfATableAreFilledUpBeforeTheLastItem) {
  // 4 bytes, 3 of filling and 1, as GnuCOBOL has it.
  builder.add(1, "R");
  builder.add(5, "P", "X(4)");
  DataItem& table = builder.addTable(5, "T", 2);
  DataItem& aligned = builder.addAligned(10, "A");
  DataItem& last = builder.add(10, "B", "X");
  DataItem& next = builder.add(5, "Z", "X");
  layOutRecord();
  EXPECT_EQ(table.size, 8U);
  EXPECT_EQ(aligned.offset, 4U);
  EXPECT_EQ(last.offset, 11U);
  EXPECT_EQ(last.slack, 3U);
  EXPECT_EQ(next.offset, 20U);
}

TEST_F(LayoutOffsets, IncludeTheFillingOfATableAtAllLevels) {
  builder.add(1, "R");
  builder.addTable(5, "T", 2);
  builder.add(10, "P", "X(4)");
  DataItem& group = builder.add(10, "G");
  DataItem& inner = builder.add(15, "H");
  DataItem& aligned = builder.addAligned(20, "A");
  DataItem& last = builder.add(20, "B", "X");
  layOutRecord();
  EXPECT_EQ(group.offset, 7U);
  EXPECT_EQ(inner.offset, 7U);
  EXPECT_EQ(aligned.offset, 7U);
  EXPECT_EQ(last.offset, 11U);
}

TEST_F(LayoutOffsets, OfARedefinitionFollowThoseOfTheFilledItem) {
  builder.add(1, "R");
  DataItem& table = builder.addTable(5, "T", 2);
  builder.addAligned(10, "A");
  DataItem& base = builder.add(10, "B", "X(2)");
  DataItem& redefinition = builder.add(10, "C", "XX");
  redefinition.isRedefinition = true;
  redefinition.redefined = &base;
  layOutRecord();
  EXPECT_EQ(table.size, 8U);
  EXPECT_EQ(base.offset, 6U);
  EXPECT_EQ(redefinition.offset, 6U);
}

TEST(Layout, HasALimit) {
  CompilationResult result = compile("01 A PIC X(2147483647) OCCURS 2.");
  EXPECT_EQ(result.diagnostics,
            "a.cpy:1:11: error: item is larger than 2 GB [size]\n"
            "         01 A PIC X(2147483647) OCCURS 2.\n"
            "            ^\n");
}

}  // namespace
}  // namespace fdmorph::compiler
