// The kinds of facets, and the numbers in their values.

#include "cobol/facets.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>

namespace fdmorph {
namespace {

// In the order of the numbers.
constexpr std::array kFacets{
    "length",       "minLength",    "maxLength",    "pattern",      "enumeration", "whiteSpace",
    "maxInclusive", "maxExclusive", "minInclusive", "minExclusive", "totalDigits", "fractionDigits",
};

unsigned typeOf(std::string const& name) {
  CDMXMLElement facet;
  facet.name = name;
  return static_cast<unsigned>(getFacetType(&facet));
}

TEST(FacetTypes, EachNameHasItsNumber) {
  for (unsigned i = 0; i < kFacets.size(); ++i) EXPECT_EQ(typeOf(kFacets[i]), i) << kFacets[i];
}

TEST(FacetTypes, PrefixIsIgnored) {
  EXPECT_EQ(typeOf("xs:maxLength"), 2U);
  EXPECT_EQ(typeOf("xsd:fractionDigits"), 11U);
}

TEST(FacetTypes, OtherNamesAreNotFacets) {
  for (char const* name : {"Length", "whitespace", "simpleType", "annotation", "", "length "}) {
    EXPECT_EQ(typeOf(name), 12U) << name;
  }
}

TEST(FacetTypes, NullIsNotAFacet) {
  EXPECT_EQ(getFacetType(nullptr), FacetType::other);
}

TEST(DecimalValue, OfANumber) {
  EXPECT_EQ(decimalValue("0"), 0);
  EXPECT_EQ(decimalValue("80"), 80);
  EXPECT_EQ(decimalValue("007"), 7);
}

TEST(DecimalValue, SignAndWhiteSpaceMayPrecede) {
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

TEST(DecimalValue, StopsAtTheEndOfTheText) {
  EXPECT_EQ(decimalValue(std::string_view("1234", 2)), 12);
}

TEST(DecimalValue, StaysInTheRangeOfAnInt) {
  EXPECT_EQ(decimalValue("2147483648"), INT_MAX);
  EXPECT_EQ(decimalValue("99999999999999999999999"), INT_MAX);
  EXPECT_EQ(decimalValue("-99999999999999999999999"), INT_MIN);
}

}  // namespace
}  // namespace fdmorph
