// What is a number in a text, and what an item stores of it.
#include <gtest/gtest.h>

#include "support/one_item.h"

namespace fdmorph::values {
namespace {

TEST(NumberText, HasAnOptionalSignAndPoint) {
  OneItem const item = gnuItem("PIC S9(3)V99 COMP-3");
  EXPECT_EQ(item.bytesOf("5"), "00500C");
  EXPECT_EQ(item.bytesOf("+5"), "00500C");
  EXPECT_EQ(item.bytesOf("-5."), "00500D");
  EXPECT_EQ(item.bytesOf(".5"), "00050C");
  EXPECT_EQ(item.bytesOf(" \t\n\r-007.50 \r\n"), "00750D");
  EXPECT_EQ(item.bytesOf("0000000000000000000000000000000000000000000000000000001.10000000000"),
            "00110C");
}

TEST(NumberText, IsNothingElse) {
  OneItem const item = gnuItem("PIC S9(3)V99 COMP-3");
  for (char const* text : {"", " ", ".", "-", "+.", "1 2", "1,5", "12x", "--1", "+ 1", "1e2", "0x1",
                           "1.2.3", "NaN", "INF", "\u0661", "\u00A01"}) {
    EXPECT_EQ(item.bytesOf(text), "[number]") << text;
  }
}

TEST(NumberText, MayHaveAnExponentInJson) {
  OneItem const item = gnuItem("PIC S9(3)V99 COMP-3");
  auto bytesOf = [&](char const* text) { return item.bytesOf(text, NumberSyntax::exponent); };
  EXPECT_EQ(bytesOf("1e2"), "10000C");
  EXPECT_EQ(bytesOf("1.25E+1"), "01250C");
  EXPECT_EQ(bytesOf("-125e-2"), "00125D");
  EXPECT_EQ(bytesOf("1e3"), "[overflow]");
  EXPECT_EQ(bytesOf("1e-3"), "[precision]");
  EXPECT_EQ(bytesOf("0e99999999999999999999"), "00000C");
  EXPECT_EQ(bytesOf("1e99999999999999999999"), "[overflow]");
  EXPECT_EQ(bytesOf("1e-99999999999999999999"), "[precision]");
  EXPECT_EQ(bytesOf("1e"), "[number]");
  EXPECT_EQ(bytesOf("1e+"), "[number]");
  EXPECT_EQ(bytesOf("1e1.5"), "[number]");
}

TEST(NumberText, OverflowsBeforeItLosesPrecision) {
  OneItem const item = gnuItem("PIC 9(3)V99 COMP-3");
  EXPECT_EQ(item.bytesOf("1000"), "[overflow]");
  EXPECT_EQ(item.bytesOf("1000.001"), "[overflow]");
  EXPECT_EQ(item.bytesOf("999.991"), "[precision]");
  EXPECT_EQ(item.bytesOf("999.990"), "99999F");
  EXPECT_EQ(item.bytesOf("-0.001"), "[overflow]");
  EXPECT_EQ(item.bytesOf("-0.000"), "00000F");
}

TEST(NumberText, IsRoundedHalfAwayFromZero) {
  Conventions conventions = gnuCobol();
  conventions.rounding = Rounding::halfUp;
  OneItem const item = gnuItem("PIC S9(3)V99 COMP-3", conventions);
  EXPECT_EQ(item.bytesOf("1.005"), "00101C");
  EXPECT_EQ(item.bytesOf("1.0049999"), "00100C");
  EXPECT_EQ(item.bytesOf("-1.005"), "00101D");
  EXPECT_EQ(item.bytesOf("0.005"), "00001C");
  EXPECT_EQ(item.bytesOf("-0.004"), "00000C");
  EXPECT_EQ(item.bytesOf("0.0005"), "00000C");
  EXPECT_EQ(item.bytesOf("9.995"), "01000C");
  EXPECT_EQ(item.bytesOf("999.995"), "[overflow]");
  EXPECT_EQ(gnuItem("PIC 9PP", conventions).bytesOf("50"), "31");
  EXPECT_EQ(gnuItem("PIC 9PP", conventions).bytesOf("49"), "30");
  EXPECT_EQ(gnuItem("PIC 9PP", conventions).bytesOf("5"), "30");
  EXPECT_EQ(gnuItem("PIC 99 COMP-5", conventions).bytesOf("255.5"), "[overflow]");
}

TEST(NumberText, IsTruncated) {
  Conventions conventions = gnuCobol();
  conventions.rounding = Rounding::truncate;
  OneItem const item = gnuItem("PIC S9(3)V99 COMP-3", conventions);
  EXPECT_EQ(item.bytesOf("1.009"), "00100C");
  EXPECT_EQ(item.bytesOf("-0.009"), "00000C");
  EXPECT_EQ(item.bytesOf("999.999"), "99999C");
  EXPECT_EQ(item.bytesOf("1000"), "[overflow]");
}

// A number is one in JSON, too, unless it is special.
TEST(NumberText, IsANumberInJson) {
  auto isNumber = [](char const* clauses, char const* digits) {
    OneItem const item = gnuItem(clauses);
    std::vector<char> out(Values::maxTextSize(item.format));
    return item.values.decode<Target::json>(item.format, hex(digits).data(), out.data()).isNumber;
  };
  EXPECT_TRUE(isNumber("PIC 99", "3132"));
  EXPECT_TRUE(isNumber("PIC 9V9", "3132"));
  EXPECT_TRUE(isNumber("PIC 99V9 COMP-3", "123C"));
  EXPECT_TRUE(isNumber("BINARY-CHAR", "01"));
  EXPECT_TRUE(isNumber("COMP-1", "0000803F"));
  EXPECT_FALSE(isNumber("COMP-1", "0000807F"));
  EXPECT_FALSE(isNumber("COMP-1", "0000C07F"));
  EXPECT_FALSE(isNumber("PIC XX", "3132"));
  EXPECT_FALSE(isNumber("PIC Z9", "3132"));
}

}  // namespace
}  // namespace fdmorph::values
