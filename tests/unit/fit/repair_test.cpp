// The comment of a repaired copybook.

#include "fit/repair.h"

#include <gtest/gtest.h>

namespace fdmorph::fit {
namespace {

TEST(LimitsComment, KeepsTheLimits) {
  EXPECT_EQ(limitsComment({5, 20}), "fdrec: unbounded 5, text 20");
  EXPECT_EQ(limitsComment({5, std::nullopt}), "fdrec: unbounded 5");
  EXPECT_EQ(limitsComment({}), "fdrec: unbounded 10");
}

TEST(LimitsComment, IsReadFromCommentLines) {
  FitLimits const fixed = readLimitsComment("      * fdrec: unbounded 5, text 20\n       01 A.\n");
  EXPECT_EQ(fixed.occurrences, 5);
  EXPECT_EQ(fixed.length, 20);
  FitLimits const free = readLimitsComment("01 A.\n*> fdrec: unbounded 7\n");
  EXPECT_EQ(free.occurrences, 7);
  EXPECT_EQ(free.length, std::nullopt);
}

TEST(LimitsComment, IsNotReadFromOtherLines) {
  EXPECT_EQ(readLimitsComment("01 A VALUE 'fdrec: unbounded 5'.\n").occurrences, std::nullopt);
  EXPECT_EQ(readLimitsComment("* fdrec: unbounded x\n").occurrences, std::nullopt);
  EXPECT_EQ(readLimitsComment("* fdrec: unbounded 0\n").occurrences, std::nullopt);
  EXPECT_EQ(readLimitsComment("").occurrences, std::nullopt);
}

TEST(LimitsComment, GivesWayToGivenLimits) {
  FitLimits const limits = withComment({3, std::nullopt}, "* fdrec: unbounded 5, text 20\n");
  EXPECT_EQ(limits.occurrences, 3);
  EXPECT_EQ(limits.length, 20);
}

}  // namespace
}  // namespace fdmorph::fit
