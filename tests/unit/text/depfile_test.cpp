// Rules for make, with names as GNU make reads them.

#include "text/depfile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace fdmorph {
namespace {

using Names = std::vector<std::string>;

std::string ruleOf(Names const& targets, Names const& files) {
  return writeDepfile(targets, files);
}

TEST(Depfile, NamesTargetsAndFilesAndEachFileAsATarget) {
  EXPECT_EQ(ruleOf({"a", "b"}, {"c", "d"}), "a b: \\\n  c \\\n  d\n\nc:\n\nd:\n");
}

TEST(Depfile, IsARuleWithoutFilesToo) {
  EXPECT_EQ(ruleOf({"a"}, {}), "a:\n");
}

TEST(Depfile, EscapesBlanksNumberSignsAndColons) {
  EXPECT_EQ(ruleOf({"a b#c:d"}, {}), "a\\ b\\#c\\:d:\n");
}

TEST(Depfile, DoublesDollarSigns) {
  EXPECT_EQ(ruleOf({"$a"}, {}), "$$a:\n");
}

// Before a blank, make takes two backslashes for one; elsewhere they stand for themselves.
TEST(Depfile, DoublesBackslashesBeforeABlankOnly) {
  EXPECT_EQ(ruleOf({"a\\\\b\\ c"}, {}), "a\\\\b\\\\\\ c:\n");
}

// As a target it would be a pattern.
TEST(Depfile, HasAFileWithAPercentSignAsNoTarget) {
  EXPECT_EQ(ruleOf({"a"}, {"b%", "c"}), "a: \\\n  b% \\\n  c\n\nc:\n");
}

TEST(Depfile, LeavesNamesOutThatCannotBeWritten) {
  EXPECT_EQ(ruleOf({"a"}, {"b\nc", "d"}), "a: \\\n  d\n\nd:\n");
  EXPECT_EQ(ruleOf({"a\nb"}, {"c"}), "");
}

}  // namespace
}  // namespace fdmorph
