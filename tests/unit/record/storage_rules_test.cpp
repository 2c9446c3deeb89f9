// Items whose bytes have no defined value.
#include "record/storage_rules.h"

#include <gtest/gtest.h>

#include "support/record_source.h"

namespace fdmorph::record {
namespace {

std::string reportsOf(std::string const& entry) {
  RecordSource source("01 A.\n 05 " + entry + ".\n 05 Z PIC X.\n");
  std::string before = source.reports();  // the compiler warns of long numbers, too
  checkStorage(source.tree, source.diagnostics());
  std::string all = source.reports();
  return all == before ? "" : all.substr(0, all.find('\n') + 1);
}

TEST(Storage, OfBinaryNumbersHasAtMost18Digits) {
  EXPECT_EQ(reportsOf("B PIC 9(18) COMP"), "");
  EXPECT_EQ(reportsOf("B PIC 9(19) COMP"),
            "2: binary number of 19 digits; at most 18 are supported [layout]\n");
  EXPECT_EQ(reportsOf("B PIC 9(19) COMP-3"), "");
}

TEST(Storage, OfBinaryCharactersHasAtMost8Bytes) {
  EXPECT_EQ(reportsOf("B PIC X(8) COMP-5"), "");
  EXPECT_EQ(reportsOf("B PIC X(9) COMP-5"),
            "2: binary number of 9 bytes; at most 8 are supported [layout]\n");
}

// No item after it has a defined offset.
TEST(Storage, OfBinaryCharactersHasAtMost8BytesWithoutARoleToo) {
  EXPECT_EQ(reportsOf("FILLER PIC X(9) COMP-X"),
            "2: binary number of 9 bytes; at most 8 are supported [layout]\n");
  EXPECT_EQ(reportsOf("FILLER PIC X(8) COMP-X"), "");
}

TEST(Storage, IsUndefinedForSomeUsages) {
  EXPECT_EQ(reportsOf("B USAGE FLOAT-EXTENDED"),
            "2: no defined form of usage float-extended [layout]\n");
  EXPECT_EQ(reportsOf("B PIC N"), "");
}

TEST(Storage, DoesNotMatterWithoutARole) {
  EXPECT_EQ(reportsOf("FILLER PIC 9(19) COMP"), "");
}

}  // namespace
}  // namespace fdmorph::record
