// The constraining facets of XML Schema (Part 2: Datatypes).
#pragma once

#include "xml/DMXMLElement.h"

namespace fdmorph {

enum class FacetType : unsigned {
  length = 0,
  minLength = 1,
  maxLength = 2,
  pattern = 3,
  enumeration = 4,
  whiteSpace = 5,
  maxInclusive = 6,
  maxExclusive = 7,
  minInclusive = 8,
  minExclusive = 9,
  totalDigits = 10,
  fractionDigits = 11,
  other = 12,
};

/// The facet that `element` is, by the local part of its name; `other` for
/// anything else and for null.
FacetType getFacetType(CDMXMLElement const* element);

}  // namespace fdmorph
