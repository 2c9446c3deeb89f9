// Conditional compilation.

#include <gtest/gtest.h>

#include "support/compiled_source.h"
#include "support/parameter_name.h"

namespace fdmorph::compiler {
namespace {

/// The size of a record A of one byte that is a byte longer if the condition,
/// after some definitions, holds.
std::string lengthIf(std::string const& condition) {
  std::string source = ">>DEFINE TWO AS 2\n>>DEFINE NAME AS \"x\"\n01 A.\n 05 B PIC X.\n>>IF " +
                       condition + "\n 05 C PIC X.\n>>END-IF";
  return lengthOf(source, "A");
}

TEST(Condition, ComparesNumbersByTheirValues) {
  EXPECT_EQ(lengthIf("TWO = 02"), "2");
  EXPECT_EQ(lengthIf("TWO = 2.50"), "1");
  EXPECT_EQ(lengthIf("2.5 = 2.50"), "2");
  EXPECT_EQ(lengthIf("TWO < 10"), "2");
  EXPECT_EQ(lengthIf("TWO > -10"), "2");
  EXPECT_EQ(lengthIf("-3 < -2"), "2");
  EXPECT_EQ(lengthIf("TWO <> 2"), "1");
  EXPECT_EQ(lengthIf("TWO >= 2"), "2");
  EXPECT_EQ(lengthIf("TWO <= 1"), "1");
}

TEST(Condition, TakesRelationsInWords) {
  EXPECT_EQ(lengthIf("TWO IS EQUAL TO 2"), "2");
  EXPECT_EQ(lengthIf("TWO IS NOT EQUAL TO 2"), "1");
  EXPECT_EQ(lengthIf("TWO IS GREATER THAN OR EQUAL TO 2"), "2");
  EXPECT_EQ(lengthIf("TWO IS LESS THAN 2"), "1");
}

TEST(Condition, ComparesTextsAsIfFilledUp) {
  EXPECT_EQ(lengthIf("NAME = 'x  '"), "2");
  EXPECT_EQ(lengthIf("NAME = 'X'"), "1");
}

TEST(Condition, AsksWhetherANameIsDefined) {
  EXPECT_EQ(lengthIf("two IS DEFINED"), "2");
  EXPECT_EQ(lengthIf("THREE DEFINED"), "1");
  EXPECT_EQ(lengthIf("THREE IS NOT DEFINED"), "2");
  // It equals nothing.
  EXPECT_EQ(lengthIf("THREE = 3"), "1");
  EXPECT_EQ(lengthIf("THREE IS NOT = 3"), "2");
}

TEST(Condition, JoinsOthers) {
  // AND binds closer than OR, NOT closer than both.
  EXPECT_EQ(lengthIf("1 = 1 OR 1 = 1 AND 1 = 2"), "2");
  EXPECT_EQ(lengthIf("(1 = 1 OR 1 = 1) AND 1 = 2"), "1");
  EXPECT_EQ(lengthIf("NOT 1 = 2 AND 1 = 1"), "2");
}

TEST(ConditionalText, TakesTheFirstBranchThatHolds) {
  char const* lines =
      "01 A.\n>>IF 1 = 2\n 05 B PIC X(1).\n>>ELIF 1 = 1\n 05 B PIC X(2).\n"
      ">>ELIF 2 = 2\n 05 B PIC X(3).\n>>ELSE\n 05 B PIC X(4).\n>>END-IF";
  EXPECT_EQ(lengthOf(lines, "A"), "2");
}

TEST(ConditionalText, DoesNothingInABranchThatIsNotTaken) {
  char const* lines =
      "01 A.\n>>IF 1 = 2\n>>DEFINE N AS 1\n>>IF 1 = 1\n COPY NOWHERE.\n>>ELSE\n 05 C PIC Q.\n"
      ">>END-IF\n>>ELSE\n 05 B PIC X.\n>>END-IF\n>>IF N DEFINED\n 05 C PIC X.\n>>END-IF";
  EXPECT_EQ(lengthOf(lines, "A"), "1");
}

TEST(ConditionalText, KnowsTheFormsWithADollarSign) {
  char const* lines =
      "$SET CONSTANT N(3)\n01 A.\n$IF N = 3\n 05 B PIC X(3).\n$ELSE\n 05 B PIC X.\n$END";
  EXPECT_EQ(lengthOf(lines, "A"), "3");
}

TEST(ConditionalText, SeesWhatAMemberDefines) {
  MemoryTree tree;
  tree.files["a.cpy"] =
      fixed("01 A.\nCOPY M.\n>>IF N = 2\n 05 B PIC X(2).\n>>ELSE\n 05 B PIC X.\n>>END-IF");
  tree.files["M.cpy"] = fixed(">>DEFINE N AS 2");
  EXPECT_EQ(attributeOf(compile(tree).dictionary, "A", "length"), "2");
}

TEST(ConditionalText, UndefinesAndOverrides) {
  char const* head = "01 A.\n>>DEFINE N AS 1\n>>DEFINE N AS 2 OVERRIDE\n>>DEFINE M AS N\n";
  std::string tail = ">>IF M = 2\n 05 B PIC X(2).\n>>ELSE\n 05 B PIC X.\n>>END-IF";
  EXPECT_EQ(lengthOf(head + tail, "A"), "2");
  tail = ">>DEFINE N OFF\n>>IF N DEFINED\n 05 B PIC X(2).\n>>ELSE\n 05 B PIC X.\n>>END-IF";
  EXPECT_EQ(lengthOf(head + tail, "A"), "1");
}

class WrongCondition : public testing::TestWithParam<WrongSource> {};

TEST_P(WrongCondition, IsReportedAtItsPlace) {
  EXPECT_EQ(firstReport(GetParam().source), GetParam().report);
}

INSTANTIATE_TEST_SUITE_P(
    All, WrongCondition,
    testing::Values(
        WrongSource{"01 A PIC X.\n>>IF 1 = 1", "a.cpy:2:8: error: IF without END-IF [conditional]"},
        WrongSource{"01 A PIC X.\n>>END-IF", "a.cpy:2:8: error: END-IF without IF [conditional]"},
        WrongSource{"01 A PIC X.\n>>IF 1 = 1\n>>ELSE\n>>ELSE\n>>END-IF",
                    "a.cpy:4:8: error: ELSE without IF [conditional]"},
        WrongSource{
            "01 A PIC X.\n>>IF 1 = \"1\"\n>>END-IF",
            "a.cpy:2:17: error: expected a number to compare with, found '\"1\"' [conditional]"},
        WrongSource{"01 A PIC X.\n>>IF 1 = 1 X\n>>END-IF",
                    "a.cpy:2:19: error: unexpected 'X' after the condition [conditional]"},
        WrongSource{"01 A PIC X.\n>>IF (1 = 1\n>>END-IF",
                    "a.cpy:2:8: error: expected ')' before the end of the line [conditional]"},
        WrongSource{"01 A PIC X.\n>>DEFINE N AS 1\n>>DEFINE N AS 2",
                    "a.cpy:3:17: error: 'N' is already defined with another value [conditional]"},
        WrongSource{"01 A PIC X.\n>>DEFINE N AS",
                    "a.cpy:2:17: error: expected a value for 'N' [conditional]"}),
    [](auto const& test) { return parameterName(test.index, test.param.source); });

TEST(ConditionalText, EndsDeepNestingWithAnError) {
  std::string condition(100000, '(');
  MemoryTree tree;
  tree.files["a.cpy"] = "       >>SOURCE FREE\n>>IF " + condition + "\n>>END-IF\n01 A PIC X.";
  CompilationResult result = compile(tree);
  EXPECT_NE(result.diagnostics.find("is nested too deeply [conditional]"), std::string::npos);
}

}  // namespace
}  // namespace fdmorph::compiler
