// The counts of a record.
#include "record/count_record.h"

#include <gtest/gtest.h>

#include "support/record_source.h"

namespace fdmorph::record {
namespace {

/// The counts of a copybook, each "NAME offset" or, for groups, "NAME offset*occurrences size".
std::string countsOf(std::string const& text) {
  RecordSource source(text);
  CountRecord counts(*source.tree.root().item);
  std::string result;
  for (CountNode const& each : counts.nodes()) {
    result.append(each.depth, ' ');
    result += each.item->name;
    if (each.hasCount) result += " at " + std::to_string(each.offset);
    if (each.hasGroup) {
      result += " group at " + std::to_string(each.groupOffset()) + " " +
                std::to_string(each.occurrences) + " of " + std::to_string(each.groupSize);
    }
    result += "\n";
  }
  return result + std::to_string(counts.size()) + "\n";
}

TEST(CountRecord, IsEmptyWithoutCounts) {
  EXPECT_EQ(countsOf("01 R.\n 05 A PIC X.\n"), "0\n");
}

TEST(CountRecord, NestsCountsAsTheItems) {
  EXPECT_EQ(countsOf("01 R COUNT IN R-C.\n"
                     " 05 A PIC X COUNT IN A-C.\n"
                     " 05 B PIC X.\n"
                     " 05 T OCCURS 3 COUNT IN T-C.\n"
                     "  10 C PIC X COUNT IN C-C.\n"
                     "  10 D PIC X COUNT IN D-C.\n"
                     " 05 E PIC X COUNT IN E-C.\n"),
            "R at 0 group at 4 1 of 36\n"
            " A at 4\n"
            " T at 8 group at 12 3 of 8\n"
            "  C at 12\n"
            "  D at 16\n"
            " E at 36\n"
            "40\n");
}

TEST(CountRecord, HasTheLargestTable) {
  EXPECT_EQ(countsOf("01 R.\n"
                     " 05 N PIC 9.\n"
                     " 05 T OCCURS 1 TO 5 DEPENDING ON N.\n"
                     "  10 C PIC X COUNT IN C-C.\n"),
            "R group at 0 1 of 20\n"
            " T group at 0 5 of 4\n"
            "  C at 0\n"
            "20\n");
}

TEST(CountRecord, HasRedefinitionsSideBySide) {
  EXPECT_EQ(countsOf("01 R.\n"
                     " 05 A PIC X COUNT IN A-C.\n"
                     " 05 B REDEFINES A COUNT IN B-C.\n"
                     "  10 C PIC X COUNT IN C-C.\n"),
            "R group at 0 1 of 12\n"
            " A at 0\n"
            " B at 4 group at 8 1 of 4\n"
            "  C at 8\n"
            "12\n");
}

TEST(CountRecord, HasNothingBelowATableOfNoOccurrences) {
  EXPECT_EQ(countsOf("01 R.\n"
                     " 05 T OCCURS 0 COUNT IN T-C.\n"
                     "  10 C PIC X COUNT IN C-C.\n"),
            "R group at 0 1 of 4\n"
            " T at 0\n"
            "4\n");
}

}  // namespace
}  // namespace fdmorph::record
