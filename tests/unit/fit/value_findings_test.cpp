// Whether the values of a type fit into an item, a code at a time.

#include <gtest/gtest.h>

#include "support/fit_fixture.h"

namespace fdmorph::fit {
namespace {

using Values = FitTest;

TEST_F(Values, TextsUpToTheLengthOfTheItemFit) {
  EXPECT_EQ(checkValue(restricted("string", "<xs:maxLength value='5'/>"), "PIC X(5)"), "");
}

TEST_F(Values, LongerTextsDoNotFit) {
  EXPECT_EQ(checkValue(restricted("string", "<xs:maxLength value='6'/>"), "PIC X(5)"),
            "2: error: texts may have 6 characters, the item holds 5; schema: string, at most 6 "
            "characters; item: X(5) [length]\n");
  EXPECT_EQ(newPicture(), "X(6)");
}

TEST_F(Values, PatternBoundsTexts) {
  EXPECT_EQ(checkValue(restricted("string", "<xs:pattern value='[A-Z]{2}\\d{3,4}'/>"), "PIC X(6)"),
            "");
  EXPECT_EQ(checkValue(restricted("string", "<xs:pattern value='[A-Z]{2}\\d{3,4}'/>"), "PIC X(5)"),
            "2: error: texts may have 6 characters, the item holds 5; schema: string, at most 6 "
            "characters; item: X(5) [length]\n");
}

TEST_F(Values, TextsWithoutABoundAreNoted) {
  EXPECT_EQ(checkValue(restricted("string", ""), "PIC X(5)"),
            "2: note: the length of texts is unbounded, the item holds 5; schema: string; item: "
            "X(5) [length-unbounded]\n");
  EXPECT_TRUE(repairs.empty());
}

TEST_F(Values, GivenLengthStandsForAnUnboundedOne) {
  options.limits.length = 20;
  EXPECT_NE(checkValue(restricted("string", ""), "PIC X(5)"), "");
  EXPECT_EQ(newPicture(), "X(20)");
  EXPECT_EQ(checkValue(restricted("string", ""), "PIC X(20)"), "");
}

TEST_F(Values, EnumerationIsAsLongAsItsLongestValue) {
  std::string const type =
      restricted("string", "<xs:enumeration value='ab'/><xs:enumeration value='&#228;bcd'/>");
  EXPECT_EQ(checkValue(type, "PIC X(4)"), "");
  EXPECT_EQ(checkValue(type, "PIC X(3)"),
            "2: error: texts may have 4 characters, the item holds 3; schema: string, 2 values of "
            "at most 4 characters; item: X(3) [length]\n");
}

TEST_F(Values, EnumeratedValuesObeyTheOtherFacets) {
  EXPECT_EQ(checkValue(restricted("string",
                                  "<xs:maxLength value='2'/><xs:enumeration value='ab'/>"
                                  "<xs:enumeration value='a'/>"),
                       "PIC X(2)"),
            "");
}

TEST_F(Values, BinaryTextsAreLongerThanTheirBytes) {
  EXPECT_EQ(checkValue(restricted("hexBinary", "<xs:maxLength value='4'/>"), "PIC X(8)"), "");
  EXPECT_NE(checkValue(restricted("hexBinary", "<xs:maxLength value='4'/>"), "PIC X(7)"), "");
  EXPECT_EQ(checkValue(restricted("base64Binary", "<xs:maxLength value='4'/>"), "PIC X(8)"), "");
  EXPECT_NE(checkValue(restricted("base64Binary", "<xs:maxLength value='4'/>"), "PIC X(7)"), "");
}

TEST_F(Values, DatesHaveATimeZone) {
  EXPECT_EQ(checkValue(restricted("date", ""), "PIC X(16)"), "");
  EXPECT_NE(checkValue(restricted("date", ""), "PIC X(15)"), "");
  EXPECT_EQ(checkValue(restricted("dateTime", ""), "PIC X(25)"), "");
  EXPECT_EQ(checkValue(restricted("boolean", ""), "PIC X(5)"), "");
  EXPECT_NE(checkValue(restricted("boolean", ""), "PIC X(4)"), "");
}

TEST_F(Values, ListsHaveBlanksBetweenTheirItems) {
  std::string const list =
      "<xs:simpleType><xs:restriction><xs:simpleType><xs:list>" +
      restricted("string", "<xs:maxLength value='3'/>") +
      "</xs:list></xs:simpleType><xs:maxLength value='4'/></xs:restriction></xs:simpleType>";
  EXPECT_EQ(checkValue(list, "PIC X(15)"), "");
  EXPECT_EQ(checkValue(list, "PIC X(14)"),
            "2: error: texts may have 15 characters, the item holds 14; schema: list of string, at "
            "most 3 characters, at most 4 items; item: X(14) [length]\n");
}

TEST_F(Values, AmountsThatDoNotFit) {
  std::string const amount =
      restricted("decimal", "<xs:totalDigits value='18'/><xs:fractionDigits value='5'/>");
  EXPECT_EQ(checkValue(amount, "PIC S9(9)"),
            "2: error: numbers may have more integer digits than the item; schema: decimal, 18 "
            "digits, 5 of them decimals; item: S9(9) [digits]\n"
            "2: error: numbers may have more decimals than the item; schema: decimal, 18 digits, 5 "
            "of them decimals; item: S9(9) [fraction]\n");
  EXPECT_EQ(newPicture(), "S9(18)V9(5)");
  EXPECT_EQ(checkValue(amount, "PIC S9(18)V9(5) COMP-3"), "");
  // All 18 digits may be before the point.
  EXPECT_NE(checkValue(amount, "PIC S9(13)V9(5)"), "");
}

TEST_F(Values, SignsThatDoNotFit) {
  EXPECT_EQ(checkValue(restricted("short", ""), "PIC 9(5)"),
            "2: error: numbers may be negative, the item has no sign; schema: short, from -32768 "
            "to 32767; item: 9(5) [sign]\n");
  EXPECT_EQ(newPicture(), "S9(5)");
  EXPECT_EQ(checkValue(restricted("unsignedShort", ""), "PIC 9(5)"), "");
}

TEST_F(Values, NumbersWithoutABoundAreNoted) {
  EXPECT_EQ(checkValue(restricted("integer", ""), "PIC S9(9)"),
            "2: note: the digits of numbers are unbounded; schema: integer; item: S9(9) "
            "[digits-unbounded]\n");
  EXPECT_EQ(checkValue(restricted("decimal",
                                  "<xs:minInclusive value='0'/>"
                                  "<xs:maxInclusive value='99.5'/>"),
                       "PIC 9(2)V9"),
            "2: note: the digits of numbers are unbounded; schema: decimal, from 0 to 99.5; item: "
            "9(2)V9 [digits-unbounded]\n");
}

TEST_F(Values, BoundsGiveTheDigits) {
  auto const integerTo = [](std::string const& bound) {
    return restricted("integer", "<xs:minInclusive value='-99'/>" + bound);
  };
  EXPECT_EQ(checkValue(integerTo("<xs:maxExclusive value='1000'/>"), "PIC S9(3)"), "");
  EXPECT_NE(checkValue(integerTo("<xs:maxInclusive value='1000'/>"), "PIC S9(3)"), "");
  EXPECT_EQ(checkValue(integerTo("<xs:maxInclusive value='+0099'/>"), "PIC S9(2)"), "");
}

TEST_F(Values, BytesOfBinaryIntegersDecide) {
  EXPECT_EQ(checkValue(restricted("int", ""), "USAGE BINARY-LONG"), "");
  EXPECT_EQ(checkValue(restricted("unsignedInt", ""), "USAGE BINARY-LONG UNSIGNED"), "");
  EXPECT_EQ(checkValue(restricted("long", ""), "PIC S9(18) COMP-5"), "");
  EXPECT_EQ(checkValue(restricted("unsignedInt", ""), "USAGE BINARY-LONG"),
            "2: error: numbers may have more integer digits than the item; schema: unsignedInt, "
            "from 0 to 4294967295; item: BINARY-LONG [digits]\n");
  EXPECT_EQ(newPicture(), "S9(10) comp-5");
}

TEST_F(Values, DigitsOfThePictureDecideOnOtherBinaryNumbers) {
  EXPECT_NE(checkValue(restricted("int", ""), "PIC S9(9) COMP"), "");
  EXPECT_EQ(newPicture(), "S9(10)");
  EXPECT_NE(checkValue(restricted("long", ""), "PIC S9(18) COMP"), "");
  EXPECT_EQ(newPicture(), "S9(19) comp-3");
}

TEST_F(Values, ScalingPositionsHoldNothing) {
  EXPECT_EQ(checkValue(restricted("unsignedByte", ""), "PIC 9(2)P"),
            "2: error: the item does not hold the last digits; schema: unsignedByte, from 0 to "
            "255; item: 9(2)P [fraction]\n");
  std::string const small = restricted("decimal",
                                       "<xs:fractionDigits value='3'/><xs:minInclusive value='0'/>"
                                       "<xs:maxExclusive value='1'/>");
  EXPECT_EQ(checkValue(small, "PIC V9(3)"), "");
  EXPECT_EQ(checkValue(small, "PIC VPP9"),
            "2: error: numbers may have more integer digits than the item; schema: decimal, 3 "
            "decimals, from 0 below 1; item: VPP9 [digits]\n");
}

TEST_F(Values, NumbersBeyondTheDigitsOfCobolBecomeTexts) {
  std::string const huge =
      restricted("decimal", "<xs:totalDigits value='38'/><xs:fractionDigits value='2'/>");
  EXPECT_NE(checkValue(huge, "PIC S9(9)"), "");
  EXPECT_EQ(newPicture(), "X(42) display");
  EXPECT_EQ(checkValue(huge, "PIC X(42)"), "");
}

TEST_F(Values, NumbersInTextItemsNeedTheirLength) {
  EXPECT_EQ(checkValue(restricted("int", ""), "PIC X(11)"), "");
  EXPECT_NE(checkValue(restricted("int", ""), "PIC X(10)"), "");
  std::string const amount =
      restricted("decimal", "<xs:totalDigits value='5'/><xs:fractionDigits value='2'/>");
  EXPECT_EQ(checkValue(amount, "PIC X(7)"), "");
  EXPECT_NE(checkValue(amount, "PIC X(6)"), "");
}

TEST_F(Values, FloatingItemsKeepSomeDigits) {
  options.dialect = compiler::Dialect::gnuCobol;
  EXPECT_EQ(checkValue(restricted("float", ""), "COMP-1"), "");
  EXPECT_EQ(checkValue(restricted("double", ""), "COMP-2"), "");
  EXPECT_EQ(checkValue(restricted("double", ""), "COMP-1"),
            "2: error: numbers may be larger or longer than the item; schema: double; item: COMP-1 "
            "[digits]\n");
  EXPECT_EQ(newPicture(), " comp-2");
  EXPECT_EQ(checkValue(restricted("int", ""), "COMP-2"), "");
  EXPECT_NE(checkValue(restricted("int", ""), "COMP-1"), "");
  EXPECT_EQ(checkValue(restricted("double", ""), "PIC S9(9)"),
            "2: error: numbers may have any exponent, the item has none; schema: double; item: "
            "S9(9) [digits]\n");
  options.dialect = compiler::Dialect::ibm;
  EXPECT_EQ(checkValue(restricted("double", ""), "COMP-2"),
            "2: note: infinities, NaN and numbers above 7.2E75 do not fit into the item; schema: "
            "double; item: COMP-2 [digits-unbounded]\n");
}

TEST_F(Values, OtherKindsAreWrongCategories) {
  EXPECT_EQ(checkValue(restricted("int", ""), "PIC A(11)"),
            "2: error: numbers do not fit into an alphabetic item; schema: int, from -2147483648 "
            "to 2147483647; item: A(11) [category]\n");
  EXPECT_EQ(checkValue(restricted("date", ""), "PIC 9(8)"),
            "2: error: dates and times do not fit into a numeric item; schema: date; item: 9(8) "
            "[category]\n");
  EXPECT_EQ(checkValue(restricted("boolean", ""), "PIC 9"),
            "2: error: booleans do not fit into a numeric item; schema: boolean; item: 9 "
            "[category]\n");
  EXPECT_EQ(checkValue(restricted("string", "<xs:maxLength value='3'/>"), "COMP-2"),
            "2: error: texts do not fit into a numeric item; schema: string, at most 3 characters; "
            "item: COMP-2 [category]\n");
  EXPECT_TRUE(repairs.empty());
}

TEST_F(Values, EnumeratedNumbersFitIntoNumericItems) {
  std::string const numbers =
      restricted("string", "<xs:enumeration value='10'/><xs:enumeration value='-7'/>");
  EXPECT_EQ(checkValue(numbers, "PIC S99"), "");
  EXPECT_NE(checkValue(numbers, "PIC S9"), "");
  EXPECT_NE(checkValue(restricted("string", "<xs:enumeration value='007'/>"), "PIC 999"), "");
}

TEST_F(Values, ItemWithoutBytesHoldsNoText) {
  EXPECT_EQ(checkValue(restricted("date", ""), ""),
            "2: error: there may be a text, the item holds none; schema: date; item: no picture "
            "[length]\n");
  EXPECT_EQ(newPicture(), "X(16)");
  EXPECT_NE(checkValue(restricted("string", ""), ""), "");
  EXPECT_EQ(newPicture(), "X(80)");
}

TEST_F(Values, NationalItemsCountCharacters) {
  EXPECT_EQ(checkValue(restricted("string", "<xs:maxLength value='5'/>"), "PIC N(5)"), "");
  EXPECT_NE(checkValue(restricted("string", "<xs:maxLength value='6'/>"), "PIC N(5)"), "");
  EXPECT_EQ(newPicture(), "N(6)");
}

TEST_F(Values, EditedItemsHoldTexts) {
  EXPECT_EQ(checkValue(restricted("unsignedShort", ""), "PIC ZZ,ZZ9"), "");
  EXPECT_NE(checkValue(restricted("unsignedInt", ""), "PIC ZZ,ZZ9"), "");
  EXPECT_EQ(newPicture(), "X(10)");
}

}  // namespace
}  // namespace fdmorph::fit
