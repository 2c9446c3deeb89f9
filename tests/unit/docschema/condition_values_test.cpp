// The values of level 88.
#include "docschema/condition_values.h"

#include <gtest/gtest.h>

#include "support/schema_source.h"

namespace fdmorph::docschema {
namespace {

// The texts of the conditions of an item A, each with a comma after it.
std::string valuesOf(std::string const& item, Trim trim = Trim::right) {
  record::RecordSource source("01 R.\n" + item + "\n");
  SchemaRules rules;
  rules.enumeratesConditions = true;
  rules.trim = trim;
  std::string result;
  for (std::string const& each : valueTypeOf(*source.node("A").item, rules).values) {
    result += each + ",";
  }
  return result;
}

TEST(ConditionValues, AreTheTextsOfDocuments) {
  EXPECT_EQ(valuesOf("05 A PIC X(3).\n88 B VALUE \"A\" \"B  \" \"CDE\"."), "A,B,CDE,");
  EXPECT_EQ(valuesOf("05 A PIC X(2).\n88 B VALUE SPACES.\n88 C VALUE ALL \"x\"."), ",xx,");
  EXPECT_EQ(valuesOf("05 A PIC X(3).\n88 B VALUE \" A\".", Trim::both), "A,");
  EXPECT_EQ(valuesOf("05 A PIC X(3).\n88 B VALUE \"A\".", Trim::none), "A  ,");
  EXPECT_EQ(valuesOf("05 A PIC X(3).\n88 B VALUE \"A\" LOW-VALUES."), "A,,");
}

TEST(ConditionValues, OfNumbersAreCanonical) {
  EXPECT_EQ(valuesOf("05 A PIC S9(3)V99.\n88 B VALUE 1 2.5 -03 ZERO."), "1.00,2.50,-3.00,0.00,");
  EXPECT_EQ(valuesOf("05 A PIC 9(3).\n88 B VALUE 007 \"008\"."), "7,8,");
}

TEST(ConditionValues, AreThereOnce) {
  EXPECT_EQ(valuesOf("05 A PIC X.\n88 B VALUE \"A\" \"B\".\n88 C VALUE \"B\"."), "A,B,");
}

TEST(ConditionValues, HaveThatOfFalse) {
  EXPECT_EQ(valuesOf("05 A PIC X.\n88 B VALUE \"Y\" FALSE \"N\"."), "Y,N,");
}

TEST(ConditionValues, LackWhatTheItemCannotHold) {
  EXPECT_EQ(valuesOf("05 A PIC 9.\n88 B VALUE 1 12 0.5."), "1,");
}

// A range, or a byte that is no text, leaves all other values possible as well.
TEST(ConditionValues, AreNoneWithARangeOrBytes) {
  EXPECT_EQ(valuesOf("05 A PIC X.\n88 B VALUE \"A\" THRU \"C\"."), "");
  EXPECT_EQ(valuesOf("05 A PIC X.\n88 B VALUE \"A\" HIGH-VALUES."), "");
  EXPECT_EQ(valuesOf("05 A COMP-1.\n88 B VALUE 1."), "");
}

TEST(ConditionLines, SayNamesAndValues) {
  record::RecordSource source(
      "01 R.\n05 A PIC X.\n88 B VALUE \"A\" \"C\" THRU \"E\".\n88 C VALUE HIGH-VALUE ALL \"x\".\n");
  std::vector<std::string> const lines = conditionLines(*source.node("A").item);
  EXPECT_EQ(lines,
            (std::vector<std::string>{"B: \"A\", \"C\" THRU \"E\"", "C: HIGH-VALUE, ALL \"x\""}));
}

}  // namespace
}  // namespace fdmorph::docschema
