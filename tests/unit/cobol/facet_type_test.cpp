// The facets and their numbers.

#include "cobol/facet_type.h"

#include <gtest/gtest.h>

#include <array>

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

TEST(FacetTypes, PrefixIsSteppedOver) {
  EXPECT_EQ(typeOf("xs:maxLength"), 2U);
  EXPECT_EQ(typeOf("xsd:fractionDigits"), 11U);
}

TEST(FacetTypes, AnythingElseIsNoFacet) {
  for (char const* name : {"Length", "whitespace", "simpleType", "annotation", "", "length "}) {
    EXPECT_EQ(typeOf(name), 12U) << name;
  }
}

TEST(FacetTypes, NullIsNoFacet) {
  EXPECT_EQ(getFacetType(nullptr), FacetType::other);
}

}  // namespace
}  // namespace fdmorph
