// Decimal numbers as texts.

#include "fit/decimal_text.h"

#include <gtest/gtest.h>

#include <string>

namespace fdmorph::fit {
namespace {

std::string shown(std::string const& text) {
  auto const number = readDecimal(text);
  if (!number) return "none";
  return (number->isNegative ? "-" : "") + number->integer + "." + number->fraction;
}

TEST(DecimalText, HasNoZerosAroundItsDigits) {
  EXPECT_EQ(shown("0012.3400"), "12.34");
  EXPECT_EQ(shown("+.5"), ".5");
  EXPECT_EQ(shown("5."), "5.");
  EXPECT_EQ(shown(" -7\n"), "-7.");
}

TEST(DecimalText, ZeroIsNotNegative) {
  EXPECT_EQ(shown("-0.00"), ".");
}

TEST(DecimalText, OtherTextsAreNone) {
  for (char const* text : {"", " ", ".", "+", "-", "1e5", "1 2", "1.2.3", "INF", "x"}) {
    EXPECT_EQ(shown(text), "none") << text;
  }
}

TEST(DecimalText, MagnitudesCompareAsNumbers) {
  auto const compare = [](char const* left, char const* right) {
    return compareMagnitudes(*readDecimal(left), *readDecimal(right));
  };
  EXPECT_TRUE(std::is_lt(compare("9", "10")));
  EXPECT_TRUE(std::is_gt(compare("-10", "9")));
  EXPECT_TRUE(std::is_gt(compare("1.5", "1.25")));
  EXPECT_TRUE(std::is_eq(compare("1.50", "1.5")));
}

}  // namespace
}  // namespace fdmorph::fit
