// REDEFINES and DEPENDING ON with names that lack the prefix of the items.

#include <gtest/gtest.h>

#include "semantics/prefixed_names.h"
#include "support/compiled_source.h"

namespace fdmorph::compiler {
namespace {

TEST(PrefixedRedefinition, TakesTheItemWhoseNameEndsSo) {
  std::string lines =
      "01 WS-R.\n"
      " 05 WS-A PIC X(4).\n"
      " 05 WS-B REDEFINES A PIC 9(4).\n";
  CompilationResult result = compile(lines);
  EXPECT_EQ(result.status, kStatusOk);
  EXPECT_EQ(reportsOf(lines).substr(0, reportsOf(lines).find('\n')),
            "a.cpy:3:27: warning: 'A' is not defined and is taken for 'WS-A' [prefix]");
  EXPECT_EQ(attributeOf(result.dictionary, "WS-R", "length"), "4");
}

TEST(PrefixedRedefinition, PrefersTheNameItself) {
  EXPECT_EQ(reportsOf("01 R.\n"
                      " 05 A PIC X(4).\n"
                      " 05 WS-A REDEFINES A PIC 9(4).\n"
                      " 05 B REDEFINES A PIC 9(4).\n"),
            "");
}

TEST(PrefixedRedefinition, TakesTheNearestItem) {
  CompilationResult result = compile(
      "01 R.\n"
      " 05 X-A PIC X(4).\n"
      " 05 Y-A REDEFINES X-A PIC X(4).\n"
      " 05 B REDEFINES A PIC X(4).\n");
  EXPECT_NE(result.diagnostics.find("'A' is not defined and is taken for 'Y-A' [prefix]"),
            std::string::npos);
}

// What an item further up is called does not matter: it cannot be redefined here.
TEST(PrefixedRedefinition, DoesNotReachOverAnotherItem) {
  EXPECT_EQ(firstReport("01 R.\n 05 WS-A PIC X.\n 05 C PIC X.\n 05 B REDEFINES A PIC X.\n"),
            "a.cpy:4:24: error: cannot redefine 'A', which is not the preceding item of the same "
            "group [redefines]");
}

TEST(PrefixedRedefinition, NeedsAHyphenBeforeTheName) {
  EXPECT_EQ(firstReport("01 R.\n 05 WSA PIC X.\n 05 B REDEFINES A PIC X.\n"),
            "a.cpy:3:24: error: cannot redefine 'A', which is not the preceding item of the same "
            "group [redefines]");
}

TEST(PrefixedCounter, IsTheOnlyIntegerItemBeforeTheTable) {
  CompilationResult result = compile(
      "01 R.\n"
      " 05 T-N PIC X.\n"  // not an integer
      " 05 WS-N PIC 9.\n"
      " 05 T PIC X OCCURS 1 TO 3 DEPENDING ON N.\n"
      " 05 U-N PIC 9.\n");  // after the table
  EXPECT_EQ(result.status, kStatusOk);
  EXPECT_EQ(attributeOf(result.dictionary, "T", "odo"), "R.WS-N");
  EXPECT_EQ(result.diagnostics.substr(0, result.diagnostics.find('\n')),
            "a.cpy:4:47: warning: 'N' is not defined and is taken for 'WS-N' [prefix]");
}

TEST(PrefixedCounter, IsAmbiguousIfThereAreSeveral) {
  EXPECT_EQ(firstReport("01 R.\n 05 A-N PIC 9.\n 05 B-N PIC 9.\n"
                        " 05 T PIC X OCCURS 1 TO 3 DEPENDING ON N.\n"),
            "a.cpy:4:47: error: 'N' is ambiguous [depending]");
}

TEST(PrefixedCounter, IsNotAfterTheTable) {
  EXPECT_EQ(firstReport("01 R.\n 05 T PIC X OCCURS 1 TO 3 DEPENDING ON N.\n 05 A-N PIC 9.\n"),
            "a.cpy:2:47: error: 'N' is not defined [depending]");
}

TEST(PrefixedCounter, IsNotInAnotherRecord) {
  EXPECT_EQ(firstReport("01 Q.\n 05 A-N PIC 9.\n01 R.\n"
                        " 05 T PIC X OCCURS 1 TO 3 DEPENDING ON N.\n"),
            "a.cpy:4:47: error: 'N' is not defined [depending]");
}

TEST(PrefixedCounter, IsAnItemOfAnotherRecordThatHasTheWholeName) {
  std::string lines =
      "01 N PIC 9.\n"
      "01 R.\n"
      " 05 A-N PIC 9.\n"
      " 05 T PIC X OCCURS 1 TO 3 DEPENDING ON N.\n";
  EXPECT_EQ(reportsOf(lines), "");
  EXPECT_EQ(attributeOf(compile(lines).dictionary, "T", "odo"), "N");
}

TEST(PrefixedCounter, MayHavePrefixesOfSeveralParts) {
  CompilationResult result = compile(
      "01 R.\n"
      " 05 WS-X-ITEM-COUNT PIC 9.\n"
      " 05 T PIC X OCCURS 1 TO 3 DEPENDING ON item-count.\n");
  EXPECT_EQ(attributeOf(result.dictionary, "T", "odo"), "R.WS-X-ITEM-COUNT");
}

}  // namespace
}  // namespace fdmorph::compiler
