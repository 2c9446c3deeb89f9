// The facets of restrictions (XML Schema: Datatypes, constraining facets).
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>

#include "cobol/DMCOBOLRecordItem.h"
#include "xml/DMXMLElement.h"

namespace fdmorph {

class RecordBuilder;

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

/// The decimal number that `text` begins with, after white space and with an
/// optional sign; 0 if it begins with none. Limited to the range of an int.
int decimalValue(std::string_view text);

/// Applies the facets in `element` to `item`, which has the picture of the base
/// type already: length and digit facets change the picture, enumerations
/// become condition names, and all others are reported as not supported.
/// Without an element the item's schema element holds the facets; without an
/// item this does nothing.
void ProcessElementFacets(CDMCOBOLRecordItem* item, CDMXMLElement const* element,
                          RecordBuilder& builder);

/// The condition names (level 88) of one restriction's enumeration facets, one
/// for each distinct value.
///
/// The number in a name comes from the search for the value among the item's
/// children: every child that is passed adds one to it. A value that is not
/// found takes the number and resets it to 0. A value that is found leaves the
/// number, so the next new name is raised by it.
class EnumerationList {
 public:
  /// `holder` is the element that holds the facets.
  EnumerationList(CDMCOBOLRecordItem* item, CDMXMLElement const* holder, RecordBuilder& builder)
      : m_item(item), m_holder(holder), m_builder(builder) {}

  /// Adds the condition name of a value. The first value of a restriction
  /// removes the condition names of its base from the item.
  void add(std::string_view value);

 private:
  void begin();

  CDMCOBOLRecordItem* m_item;
  CDMXMLElement const* m_holder;
  RecordBuilder& m_builder;
  bool m_hasBegun = false;
  std::size_t m_number = 0;
  std::unordered_map<std::string_view, std::size_t> m_places;  // first child of each value
};

}  // namespace fdmorph
