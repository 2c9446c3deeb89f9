// Numbers in facet values.

#include "cobol/decimal_text.h"

#include <gtest/gtest.h>

#include <climits>

namespace fdmorph {
namespace {

TEST(DecimalValue, OfANumber) {
  EXPECT_EQ(decimalValue("0"), 0);
  EXPECT_EQ(decimalValue("80"), 80);
  EXPECT_EQ(decimalValue("007"), 7);
}

TEST(DecimalValue, SignAndWhiteSpaceMayStandInFront) {
  EXPECT_EQ(decimalValue("-3"), -3);
  EXPECT_EQ(decimalValue("+5"), 5);
  EXPECT_EQ(decimalValue(" \t\n12"), 12);
}

TEST(DecimalValue, LeadingDigitsCount) {
  EXPECT_EQ(decimalValue("12abc"), 12);
  EXPECT_EQ(decimalValue("3.9"), 3);
}

TEST(DecimalValue, TextWithoutANumberIsZero) {
  EXPECT_EQ(decimalValue(""), 0);
  EXPECT_EQ(decimalValue("abc"), 0);
  EXPECT_EQ(decimalValue("-"), 0);
  EXPECT_EQ(decimalValue("x12"), 0);
}

TEST(DecimalValue, EndsWithItsText) {
  EXPECT_EQ(decimalValue(std::string_view("1234", 2)), 12);
}

TEST(DecimalValue, StaysInTheRangeOfAnInt) {
  EXPECT_EQ(decimalValue("2147483648"), INT_MAX);
  EXPECT_EQ(decimalValue("99999999999999999999999"), INT_MAX);
  EXPECT_EQ(decimalValue("-99999999999999999999999"), INT_MIN);
}

}  // namespace
}  // namespace fdmorph
