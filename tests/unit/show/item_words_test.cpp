// The properties of items in words.

#include "show/item_words.h"

#include <gtest/gtest.h>

#include "support/record_source.h"

namespace fdmorph::show {
namespace {

using record::RecordSource;

TEST(LevelWords, HaveTwoDigits) {
  RecordSource source("01 A. 5 B PIC X. 10 C PIC X.");
  EXPECT_EQ(levelWords(*source.node("B").item), "05");
}

TEST(StorageWords, NameTheClausesThatChangeTheBytes) {
  RecordSource source(
      "01 A. 02 B PIC S9(3) SIGN LEADING. 02 C PIC S9 SIGN TRAILING SEPARATE."
      " 02 D PIC X(3) JUSTIFIED. 02 E PIC 9(2) BLANK WHEN ZERO."
      " 02 F PIC S9(4) COMP SYNC. 02 G BINARY-SHORT UNSIGNED.");
  EXPECT_EQ(storageWords(*source.node("B").item), "display sign leading");
  EXPECT_EQ(storageWords(*source.node("C").item), "display sign trailing separate");
  EXPECT_EQ(storageWords(*source.node("D").item), "display justified");
  EXPECT_EQ(storageWords(*source.node("E").item), "display blank zero");
  EXPECT_EQ(storageWords(*source.node("F").item), "comp-4 sync");
  EXPECT_EQ(storageWords(*source.node("G").item), "binary-short unsigned");
}

TEST(StorageWords, AreOfElementaryItems) {
  RecordSource source("01 A COMP. 02 B PIC 9.");
  EXPECT_EQ(storageWords(*source.node("A").item), "");
  EXPECT_EQ(storageWords(*source.node("B").item), "comp-4");
}

TEST(StorageWords, LeaveOutItemsWithoutContent) {
  RecordSource source("01 A IDENTIFIED BY 'a'. 02 B IDENTIFIED BY 'b'. 02 C PIC X.");
  EXPECT_EQ(storageWords(*source.node("B").item), "");
}

TEST(OccursWords, HaveALowerBoundOnlyIfTheTableVaries) {
  RecordSource source(
      "01 A. 02 N PIC 9. 02 B PIC X OCCURS 4. 02 C PIC X OCCURS 0 TO 7 DEPENDING ON N.");
  EXPECT_EQ(occursWithCounter(*source.node("N").item), "");
  EXPECT_EQ(occursWithCounter(*source.node("B").item), "4");
  EXPECT_EQ(occursWords(*source.node("C").item), "0..7");
  EXPECT_EQ(occursWithCounter(*source.node("C").item), "0..7 by N");
}

TEST(ValueWords, AreThoseOfTheSource) {
  RecordSource source(
      "01 A. 02 B PIC X(2). 88 C VALUES 'it''s' ALL \"*\" LOW-VALUES THRU SPACES X'00'."
      " 02 D PIC S9. 88 E VALUES -1 ZERO.");
  EXPECT_EQ(valueWords(*source.node("B").item->firstCondition),
            "'it''s', ALL \"*\", LOW-VALUE THRU SPACE, X'00'");
  EXPECT_EQ(valueWords(*source.node("D").item->firstCondition), "-1, ZERO");
}

TEST(Depths, CountTheGroupsAroundAnItem) {
  RecordSource source("01 A. 02 B. 03 C PIC X. 02 D PIC X.");
  EXPECT_EQ(depthsOf(source.tree), (std::vector<std::uint32_t>{0, 1, 2, 1}));
}

TEST(ByteWords, HaveASingular) {
  EXPECT_EQ(byteWords(1), "1 byte");
  EXPECT_EQ(byteWords(0), "0 bytes");
}

}  // namespace
}  // namespace fdmorph::show
