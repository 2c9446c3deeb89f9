// What entries for items do.

#include "mapping/described_data.h"

#include <gtest/gtest.h>

#include "mapping_fixture.h"

namespace fdmorph::mapping {
namespace {

Standing standingOf(DescribedData const& data, std::string_view key) {
  auto const found = data.find(key);
  EXPECT_EQ(found.size(), 1U) << key;
  return found.empty() ? Standing::file : data.items()[found.front()].standing;
}

TEST(DescribedData, ItemsOfTheFirstRecordHaveEntries) {
  Described const described(
      "01  A.\n"
      "    05  B.\n"
      "        10  C PIC X.\n"
      "            88  D VALUE 'd'.\n"
      "    05  E REDEFINES B PIC X.\n"
      "01  F PIC X.\n");
  DescribedData const& data = described.data();
  EXPECT_EQ(standingOf(data, "A"), Standing::written);
  EXPECT_EQ(standingOf(data, "A.B.C"), Standing::written);
  EXPECT_EQ(standingOf(data, "A.B.C.D"), Standing::condition);
  EXPECT_EQ(standingOf(data, "A.E"), Standing::redefinition);
  EXPECT_EQ(standingOf(data, "F"), Standing::otherRecord);
  EXPECT_TRUE(data.find("A.C").empty());
}

TEST(DescribedData, FillerGroupHasNoEntryButMembersHave) {
  Described const described(
      "01  A.\n"
      "    05  FILLER.\n"
      "        10  B PIC X.\n"
      "    05  PIC X.\n");
  auto const fillers = described.data().find("A.FILLER");
  ASSERT_EQ(fillers.size(), 2U);
  EXPECT_EQ(described.data().items()[fillers[0]].standing, Standing::fillerGroup);
  EXPECT_EQ(described.data().items()[fillers[1]].standing, Standing::written);
  EXPECT_EQ(standingOf(described.data(), "A.FILLER.B"), Standing::written);
}

TEST(DescribedData, RecordAfterAnElementaryFillerIsConvertedWithoutEntries) {
  Described const described(
      "01  FILLER PIC X.\n"
      "01  A.\n"
      "    05  B PIC X.\n"
      "01  C PIC X.\n");
  EXPECT_EQ(standingOf(described.data(), "FILLER"), Standing::written);
  EXPECT_EQ(standingOf(described.data(), "A.B"), Standing::unwritten);
  EXPECT_EQ(standingOf(described.data(), "C"), Standing::otherRecord);
}

constexpr char kProgram[] =
    "IDENTIFICATION DIVISION.\n"
    "PROGRAM-ID. A.\n"
    "ENVIRONMENT DIVISION.\n"
    "INPUT-OUTPUT SECTION.\n"
    "FILE-CONTROL.\n"
    "    SELECT F ASSIGN TO 'f'.\n"
    "DATA DIVISION.\n"
    "FILE SECTION.\n"
    "FD  F.\n"
    "01  B.\n"
    "    05  C PIC X.\n"
    "WORKING-STORAGE SECTION.\n"
    "01  W PIC X.\n"
    "LINKAGE SECTION.\n"
    "01  L.\n"
    "    05  M PIC X.\n";

TEST(DescribedData, WorkingStorageComesBeforeFiles) {
  Described const described(kProgram);
  EXPECT_EQ(standingOf(described.data(), "W"), Standing::written);
  EXPECT_EQ(standingOf(described.data(), "F"), Standing::file);
  EXPECT_EQ(standingOf(described.data(), "F.B.C"), Standing::otherRecord);
  EXPECT_TRUE(described.data().find("L.M").empty());
  EXPECT_TRUE(described.data().isElsewhere("L.M"));
  EXPECT_FALSE(described.data().isElsewhere("L.N"));
}

TEST(DescribedData, RecordIsChosenAsByTheDirective) {
  compiler::DictionaryChoice choice;
  choice.records = {"L"};
  Described const described(kProgram, choice);
  EXPECT_EQ(standingOf(described.data(), "L.M"), Standing::written);
  EXPECT_TRUE(described.data().find("W").empty());
  EXPECT_TRUE(described.data().isElsewhere("W"));
}

}  // namespace
}  // namespace fdmorph::mapping
