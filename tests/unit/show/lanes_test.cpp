// Lanes of items that have the same bytes.

#include "show/lanes.h"

#include <gtest/gtest.h>

#include "support/record_source.h"

namespace fdmorph::show {
namespace {

using record::RecordSource;
using Lanes = std::vector<std::uint32_t>;

TEST(Lanes, AreZeroForItemsWithStorageOfTheirOwn) {
  RecordSource source("01 A. 02 B PIC X. 02 C. 03 D PIC X OCCURS 3.");
  EXPECT_EQ(lanesOf(source.tree), (Lanes{0, 0, 0, 0}));
}

TEST(Lanes, AreOneForEachRedefinitionOfAnItem) {
  RecordSource source(
      "01 A. 02 B PIC X(4). 02 C REDEFINES B PIC X. 02 D REDEFINES B. 03 E PIC X."
      " 02 F REDEFINES B PIC X(4).");
  EXPECT_EQ(lanesOf(source.tree), (Lanes{0, 0, 1, 2, 0, 3}));
}

TEST(Lanes, AreUsedAgainAfterTheirItems) {
  RecordSource source(
      "01 A. 02 B PIC X(4). 02 C REDEFINES B PIC X(4). 02 D REDEFINES B PIC X(2)."
      " 02 E PIC X(4). 02 F REDEFINES E PIC X(4).");
  EXPECT_EQ(lanesOf(source.tree), (Lanes{0, 0, 1, 2, 0, 1}));
}

TEST(Lanes, KeepTheOccurrencesOfATableApart) {
  RecordSource source(
      "01 A. 02 B PIC X(4). 02 C REDEFINES B PIC X(2) OCCURS 4."
      " 02 D PIC X(4). 02 E REDEFINES D PIC X.");
  EXPECT_EQ(lanesOf(source.tree), (Lanes{0, 0, 1, 0, 1}));
}

TEST(Lanes, HaveRenamesBesideRedefinitions) {
  RecordSource source(
      "01 A. 02 B PIC X(4). 02 C REDEFINES B PIC X(4). 02 D PIC X."
      " 66 E RENAMES B THRU D. 66 F RENAMES D.");
  EXPECT_EQ(lanesOf(source.tree), (Lanes{0, 0, 1, 0, 2, 3}));
}

}  // namespace
}  // namespace fdmorph::show
