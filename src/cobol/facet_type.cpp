#include "cobol/facet_type.h"

#include <algorithm>
#include <array>

namespace fdmorph {
namespace {

// In the order of the enumeration.
constexpr std::array<std::string_view, 12> kFacetNames{
    "length",       "minLength",    "maxLength",    "pattern",      "enumeration", "whiteSpace",
    "maxInclusive", "maxExclusive", "minInclusive", "minExclusive", "totalDigits", "fractionDigits",
};

}  // namespace

FacetType getFacetType(CDMXMLElement const* element) {
  if (element == nullptr) return FacetType::other;
  std::string_view local = CDMXMLNode::getNonQualifiedName(element->name);
  auto found = std::find(kFacetNames.begin(), kFacetNames.end(), local);
  return static_cast<FacetType>(found - kFacetNames.begin());
}

}  // namespace fdmorph
