// Items compared with literals and figurative constants.
#include "values/comparand.h"

#include <gtest/gtest.h>

#include "support/one_item.h"

namespace fdmorph::values {
namespace {

using compiler::Literal;

Literal literalOf(std::string_view text) {
  Literal literal;
  if (text.starts_with("ALL ")) {
    literal.isAll = true;
    text.remove_prefix(4);
  }
  literal.text = text;
  if (text == "SPACE") {
    literal.kind = Literal::Kind::space;
  } else if (text == "ZERO") {
    literal.kind = Literal::Kind::zero;
  } else if (text == "LOW-VALUE") {
    literal.kind = Literal::Kind::lowValue;
  } else if (text == "HIGH-VALUE") {
    literal.kind = Literal::Kind::highValue;
  } else if (text == "QUOTE") {
    literal.kind = Literal::Kind::quote;
  } else {
    literal.kind = text.ends_with('"') ? Literal::Kind::text : Literal::Kind::number;
  }
  return literal;
}

// How the item compares to the literal: '<', '=', '>', or '?' if it cannot be read.
char compared(OneItem const& item, std::string_view bytes, std::string_view literal) {
  auto const order = compare(item.values, item.format, hex(bytes).data(), literalOf(literal));
  if (!order) return '?';
  return *order < 0 ? '<' : *order > 0 ? '>' : '=';
}

TEST(Comparison, OfNumbersIsThatOfTheirValues) {
  OneItem const zoned = ibmItem("PIC S9(3)V9");
  EXPECT_EQ(compared(zoned, "F0F1F2D0", "-12"), '=');
  EXPECT_EQ(compared(zoned, "F0F1F2D0", "-12.00"), '=');
  EXPECT_EQ(compared(zoned, "F0F1F2D0", "-12.01"), '>');
  EXPECT_EQ(compared(zoned, "F0F1F2D0", "-11"), '<');
  EXPECT_EQ(compared(zoned, "F0F1F2C0", "9"), '>');
  EXPECT_EQ(compared(zoned, "F0F1F2C0", "100"), '<');
  EXPECT_EQ(compared(zoned, "F0F0F0D0", "ZERO"), '=');
  EXPECT_EQ(compared(zoned, "F0F0F0D0", "0"), '=');
  EXPECT_EQ(compared(zoned, "F0F1F2C0", "\"12\""), '=');
  OneItem const packed = ibmItem("PIC S9(3) COMP-3");
  EXPECT_EQ(compared(packed, "005C", "5"), '=');
  EXPECT_EQ(compared(packed, "005F", "+5.0"), '=');
  EXPECT_EQ(compared(ibmItem("PIC S9(4) COMP"), "FFFE", "-3"), '>');
}

TEST(Comparison, OfNumbersThatCannotBeReadIsNone) {
  EXPECT_EQ(compared(ibmItem("PIC 99"), "4040", "0"), '?');
  EXPECT_EQ(compared(ibmItem("PIC 999 COMP-3"), "0000", "0"), '?');
}

TEST(Comparison, OfFloatingNumbersIsWithWhatTheItemWouldHold) {
  EXPECT_EQ(compared(gnuItem("COMP-1"), "CDCCCC3D", "0.1"), '=');
  EXPECT_EQ(compared(gnuItem("COMP-1"), "CDCCCC3D", "0.2"), '<');
  EXPECT_EQ(compared(gnuItem("COMP-1"), "0000C07F", "0.2"), '?');
  EXPECT_EQ(compared(ibmItem("COMP-1"), "4019999A", "0.1"), '=');
}

// In EBCDIC letters come before digits.
TEST(Comparison, OfTextsIsInTheOrderOfTheEncoding) {
  EXPECT_EQ(compared(ibmItem("PIC X"), "C1", "\"1\""), '<');
  EXPECT_EQ(compared(gnuItem("PIC X"), "41", "\"1\""), '>');
  EXPECT_EQ(compared(ibmItem("PIC XX"), "C140", "\"A\""), '=');
  EXPECT_EQ(compared(ibmItem("PIC XX"), "C100", "\"A\""), '=');
  EXPECT_EQ(compared(ibmItem("PIC X"), "C1", "\"A  \""), '=');
  EXPECT_EQ(compared(ibmItem("PIC X"), "C1", "\"AB\""), '<');
  EXPECT_EQ(compared(ibmItem("PIC XX"), "C1C2", "X\"C1C2\""), '=');
  EXPECT_EQ(compared(ibmItem("PIC XX"), "F0F1", "01"), '=');
  EXPECT_EQ(compared(ibmItem("PIC X"), "C1", "\"\u20AC\""), '?');  // not in the encoding
}

TEST(Comparison, TakesFigurativeConstants) {
  OneItem const item = ibmItem("PIC XX");
  EXPECT_EQ(compared(item, "4040", "SPACE"), '=');
  EXPECT_EQ(compared(item, "4000", "SPACE"), '=');
  EXPECT_EQ(compared(item, "4041", "SPACE"), '>');
  EXPECT_EQ(compared(item, "0000", "LOW-VALUE"), '=');
  EXPECT_EQ(compared(item, "4040", "LOW-VALUE"), '>');
  EXPECT_EQ(compared(item, "FFFF", "HIGH-VALUE"), '=');
  EXPECT_EQ(compared(item, "F0F0", "ZERO"), '=');
  EXPECT_EQ(compared(item, "7F7F", "QUOTE"), '=');
  EXPECT_EQ(compared(item, "C1C1", "ALL \"A\""), '=');
  EXPECT_EQ(compared(item, "C1C2", "ALL \"A\""), '>');
}

TEST(Comparison, OfZonedNumbersWithOtherConstantsIsByTheirBytes) {
  OneItem const item = ibmItem("PIC 99");
  EXPECT_EQ(compared(item, "4040", "SPACE"), '=');
  EXPECT_EQ(compared(item, "F0F0", "SPACE"), '>');
  EXPECT_EQ(compared(item, "0000", "LOW-VALUE"), '=');
  EXPECT_EQ(compared(item, "0000", "SPACE"), '<');
  EXPECT_EQ(compared(item, "FFFF", "HIGH-VALUE"), '=');
  EXPECT_EQ(compared(item, "F9F9", "HIGH-VALUE"), '<');
}

TEST(Comparison, OfNationalItemsIsByUnits) {
  EXPECT_EQ(compared(ibmItem("PIC N(2)"), "0041 0020", "N\"A\""), '=');
  EXPECT_EQ(compared(ibmItem("PIC N(2)"), "0041 0000", "\"A\""), '=');
  EXPECT_EQ(compared(gnuItem("PIC N(2)"), "0001 0020", "\"A\""), '>');  // U+0100
  EXPECT_EQ(compared(gnuItem("PIC N(2)"), "2000 2000", "SPACE"), '=');
}

TEST(Comparison, OfGroupsIsThatOfTexts) {
  OneItem const item = ibmItem("PIC X");
  auto const order =
      compare(item.values, makeTextFormat(3), hex("C1C240").data(), literalOf("\"AB\""));
  EXPECT_EQ(order, std::strong_ordering::equal);
}

TEST(Comparison, OfDecimalsIgnoresZeros) {
  EXPECT_EQ(compareDecimals("007.10", "7.1"), std::strong_ordering::equal);
  EXPECT_EQ(compareDecimals("-0", "0.0"), std::strong_ordering::equal);
  EXPECT_EQ(compareDecimals("10", "9"), std::strong_ordering::greater);
  EXPECT_EQ(compareDecimals("-10", "-9"), std::strong_ordering::less);
  EXPECT_EQ(compareDecimals("0.09", "0.1"), std::strong_ordering::less);
}

}  // namespace
}  // namespace fdmorph::values
