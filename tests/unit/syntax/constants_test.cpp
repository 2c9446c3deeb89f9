// Named constants and the lengths that they take.

#include <gtest/gtest.h>

#include "support/compiled_source.h"
#include "support/parameter_name.h"

namespace fdmorph::compiler {
namespace {

TEST(Constant, OfLevel78AppliesOperatorsFromLeftToRight) {
  EXPECT_EQ(lengthOf("78 N VALUE 2 + 3 * 4.\n01 A PIC X(N).", "A"), "20");
  EXPECT_EQ(lengthOf("78 N VALUE 10 - 2 - 3.\n01 A PIC X(N).", "A"), "5");
}

TEST(Constant, OfAConstantEntryAppliesOperatorsByPrecedence) {
  EXPECT_EQ(lengthOf("01 N CONSTANT AS 2 + 3 * 4.\n01 A PIC X(N).", "A"), "14");
  EXPECT_EQ(lengthOf("01 N CONSTANT AS (2 + 3) * 4.\n01 A PIC X(N).", "A"), "20");
  EXPECT_EQ(lengthOf("01 N CONSTANT AS 2 * 3 ** 2.\n01 A PIC X(N).", "A"), "18");
  EXPECT_EQ(lengthOf("01 N CONSTANT IS GLOBAL AS 20 / 4.\n01 A PIC X(N).", "A"), "5");
}

TEST(Constant, TakesWhatADirectiveDefines) {
  EXPECT_EQ(lengthOf(">>DEFINE M AS 4\n01 N CONSTANT FROM M.\n01 A PIC X(N).", "A"), "4");
}

TEST(Constant, MayBeDefinedByADirectiveAlone) {
  std::string lines =
      ">>DEFINE M AS 4\n>>DEFINE CONSTANT T AS \"ab\"\n$SET CONSTANT S 6\n78 N VALUE M.\n"
      "01 A PIC X(N).\n01 B PIC 9 VALUE M.\n01 C PIC X(3) VALUE T & \"c\".\n01 D.\n"
      " 05 E PIC X(S) OCCURS M.";
  EXPECT_EQ(lengthOf(lines, "A"), "4");
  std::string dictionary = compile(lines).dictionary;
  EXPECT_EQ(attributeOf(dictionary, "B", "value"), "4");
  EXPECT_EQ(attributeOf(dictionary, "C", "value"), "abc");
  EXPECT_EQ(attributeOf(dictionary, "E", "picture"), "X(6)");
  EXPECT_EQ(attributeOf(dictionary, "E", "maxOccurs"), "4");
}

TEST(Constant, MayBeAnyPowerOf1) {
  EXPECT_EQ(lengthOf("01 K CONSTANT AS 1 ** 64.\n01 A PIC X(K).", "A"), "1");
}

TEST(Constant, NamesACharacter) {
  MemoryTree tree;
  tree.files["a.cpy"] = fixed(
      "PROGRAM-ID. P.\nENVIRONMENT DIVISION.\nSPECIAL-NAMES.\n"
      "SYMBOLIC CHARACTERS SMALL-A BANG ARE 98 34\n"
      "SYMBOLIC CHARACTERS TILDE IS 127.\n"
      "DATA DIVISION.\nWORKING-STORAGE SECTION.\n"
      "01 A PIC X VALUE SMALL-A.\n01 B PIC X(3) VALUE ALL BANG.\n01 C PIC X VALUE TILDE.");
  std::string dictionary = compile(tree).dictionary;
  // Characters are counted from 1.
  EXPECT_EQ(attributeOf(dictionary, "A", "value"), "a");
  EXPECT_EQ(attributeOf(dictionary, "B", "value"), "!!!");
  EXPECT_EQ(attributeOf(dictionary, "C", "value"), "~");
}

TEST(Constant, MayBeAHexadecimalNumber) {
  EXPECT_EQ(lengthOf("78 N VALUE H\"1F\".\n01 A PIC X(N).", "A"), "31");
}

TEST(Constant, MayBeNegative) {
  EXPECT_EQ(lengthOf("78 M VALUE -1.\n78 N VALUE M + 4.\n01 A PIC X(N).", "A"), "3");
}

TEST(Constant, TakesTheLengthOfAnItem) {
  char const* record = "01 R.\n 05 B PIC 9(4) COMP.\n 05 T OCCURS 3.\n  10 C PIC X(5).\n";
  auto length = [&](std::string const& name) {
    return lengthOf(record + ("78 N VALUE LENGTH OF " + name + ".\n01 A PIC X(N)."), "A");
  };
  EXPECT_EQ(length("B"), "2");
  EXPECT_EQ(length("C OF T"), "5");
  EXPECT_EQ(length("T"), "15");  // all its occurrences
  EXPECT_EQ(length("R"), "17");
}

TEST(Constant, TakesTheLengthOfALiteralInBytes) {
  EXPECT_EQ(lengthOf("01 N CONSTANT AS LENGTH OF \"A\"\"B\".\n01 A PIC X(N).", "A"), "3");
  EXPECT_EQ(lengthOf("01 N CONSTANT BYTE-LENGTH OF N\"AB\".\n01 A PIC X(N).", "A"), "4");
  EXPECT_EQ(lengthOf("01 N CONSTANT AS BYTE-LENGTH OF N\"AB\".\n01 A PIC X(N).", "A"), "4");
}

TEST(Constant, MeasuresARecordAgainWhenItHasGrown) {
  char const* lines =
      "01 R.\n 05 B PIC X(2).\n78 N VALUE LENGTH OF B.\n"
      " 05 C PIC X(3).\n78 M VALUE LENGTH OF C.\n01 S.\n 05 D PIC X(N).\n 05 E PIC X(M).";
  EXPECT_EQ(lengthOf(lines, "S"), "5");
}

TEST(Constant, KnowsTheSlackOfSynchronizedItems) {
  // In its record the group begins at byte 1: a byte of slack is in it.
  char const* lines =
      "01 R.\n 05 B PIC X.\n 05 G.\n  10 C PIC 9(4) COMP SYNC.\n 05 D PIC X.\n"
      "78 N VALUE LENGTH OF G.\n01 A PIC X(N).";
  EXPECT_EQ(lengthOf(lines, "A"), lengthOf(lines, "G"));
  EXPECT_EQ(lengthOf(lines, "A"), "3");
}

TEST(Constant, TakesAnyNumberOfLengths) {
  std::string lines = "01 R.\n";
  for (int i = 0; i < 10000; ++i) {
    std::string number = std::to_string(i);
    lines +=
        " 05 B" + number + " PIC X(3).\n 78 N" + number + " VALUE LENGTH OF B" + number + ".\n";
  }
  EXPECT_EQ(lengthOf(lines + "01 A PIC X(N9999).", "A"), "3");
}

TEST(Constant, KnowsUsageAndRedefinitionOfWhatItMeasures) {
  char const* lines =
      "01 R COMP-3.\n 05 B PIC 9(5).\n 05 C REDEFINES B.\n  10 D PIC 9(3).\n"
      "78 N VALUE LENGTH OF R.\n01 A PIC X(N).";
  EXPECT_EQ(lengthOf(lines, "A"), "3");
}

TEST(Value, MayBeALength) {
  CompilationResult result = compile("01 R PIC X(30).\n01 V PIC 9(4) VALUE LENGTH OF R.");
  EXPECT_EQ(attributeOf(result.dictionary, "V", "value"), "30");
}

class WrongConstant : public testing::TestWithParam<WrongSource> {};

TEST_P(WrongConstant, IsReportedAtItsPlace) {
  EXPECT_EQ(firstReport(GetParam().source), GetParam().report);
}

INSTANTIATE_TEST_SUITE_P(
    All, WrongConstant,
    testing::Values(
        WrongSource{"78 N VALUE LENGTH OF B.", "a.cpy:1:29: error: 'B' is not defined [constant]"},
        WrongSource{"01 R.\n 05 B PIC X.\n01 S.\n 05 B PIC X.\n78 N VALUE LENGTH OF B.",
                    "a.cpy:5:29: error: 'B' is ambiguous [constant]"},
        WrongSource{"01 R.\n 05 B PIC X.\n78 N VALUE LENGTH OF R.\n 05 C PIC X.",
                    "a.cpy:3:29: error: length of 'R' is used before its last item [constant]"},
        WrongSource{"01 R.\n 05 B PIC X.\n66 C RENAMES B.\n78 N VALUE LENGTH OF C.",
                    "a.cpy:4:29: error: the length of 'C', an item of level 66, is not known yet "
                    "[constant]"},
        WrongSource{"01 N CONSTANT FROM M.",
                    "a.cpy:1:27: error: no directive defines 'M' [constant]"},
        WrongSource{"78 N VALUE 1 / 0.",
                    "a.cpy:1:23: error: division by zero in constant expression [constant]"},
        WrongSource{
            "78 N VALUE \"a\" + 1.",
            "a.cpy:1:19: error: an operand of a constant expression must be an integer [constant]"},
        WrongSource{
            "78 N 5.",
            "a.cpy:1:13: error: expected VALUE in the constant entry, found '5' [constant]"},
        WrongSource{"78 N VALUE 5 PIC X.",
                    "a.cpy:1:21: error: expected '.' at the end of the constant entry, found 'PIC' "
                    "[syntax]"},
        // A constant is no item that a table could depend on.
        WrongSource{"01 N CONSTANT AS 5.\n01 A PIC X OCCURS 1 TO 3 DEPENDING ON N.",
                    "a.cpy:2:46: error: 'N' is not defined [depending]"}),
    [](auto const& test) { return parameterName(test.index, test.param.source); });

}  // namespace
}  // namespace fdmorph::compiler
