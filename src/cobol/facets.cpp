#include "cobol/facets.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <string>

#include "cobol/record_builder.h"
#include "schema/DMXMLSchemaDoc.h"
#include "text/console.h"

namespace fdmorph {
namespace {

// In the order of the enumeration.
constexpr std::array<std::string_view, 12> kFacetNames{
    "length",       "minLength",    "maxLength",    "pattern",      "enumeration", "whiteSpace",
    "maxInclusive", "maxExclusive", "minInclusive", "minExclusive", "totalDigits", "fractionDigits",
};

void raiseSize(CDMCOBOLRecordItem* item, std::string_view value) {
  if (item->pictureSize.empty() || decimalValue(item->pictureSize) < decimalValue(value)) {
    item->pictureSize = value;
  }
}

void warnPattern(CDMCOBOLRecordItem const* item) {
  err() << "Warning : This version of FDMORPH does not support"
        << " the <pattern> element facet for element " << item->identifiedBy << endLine;
}

void warnRange(std::string_view facet, CDMCOBOLRecordItem const* item) {
  err() << "Warning : This version of FDMORPH does not support the " << facet
        << " facet for the element " << item->identifiedBy << endLine;
}

void warnWhiteSpace(std::string_view value, CDMCOBOLRecordItem const* item) {
  Message message = err();
  message << "Warning : Whitespace facet encountered "
             "Warning : Whitespace facet encountered for element "
          << item->identifiedBy << " - ";
  if (value == "preserve") {
    message << "No normalization is done, the value"
            << " is not changed (this is the behavior required by "
            << " [XML 1.0 (Second Edition)] for element content)";
  } else if (value == "replace") {
    message << "All occurrences of #x9 (tab), #xA (line feed)"
            << " and #xD (carriage return) are replaced with #x20 (space)";
  } else if (value == "collapse") {
    message << "After the processing implied by replace,"
            << " contiguous sequences of #x20's are collapsed to a "
            << " single #x20, and leading and trailing #x20's are removed";
  }
  message << endLine;
}

// Applies a facet that reads its value.
void applyValue(CDMXMLElement const* facet, FacetType type, std::string_view value,
                CDMCOBOLRecordItem* item, EnumerationList& enumerations, RecordBuilder& builder) {
  builder.store().countText(value);
  switch (type) {
    case FacetType::length:
    case FacetType::maxLength:
      item->pictureSize = value;
      break;
    case FacetType::minLength:
      raiseSize(item, value);
      break;
    case FacetType::totalDigits:
      item->totalDigits = decimalValue(value);
      break;
    case FacetType::fractionDigits:
      item->fractionDigits = value;
      break;
    case FacetType::enumeration:
      enumerations.add(value);
      // The last child of any kind decides, not the last enumeration.
      if (facet->getNextSibling() == nullptr) item->addChild(builder.makeValueItem(item));
      break;
    default:
      break;
  }
}

}  // namespace

FacetType getFacetType(CDMXMLElement const* element) {
  if (element == nullptr) return FacetType::other;
  std::string_view local = CDMXMLNode::getNonQualifiedName(element->name);
  auto found = std::ranges::find(kFacetNames, local);
  return static_cast<FacetType>(found - kFacetNames.begin());
}

int decimalValue(std::string_view text) {
  long value = std::strtol(std::string(text).c_str(), nullptr, 10);
  return static_cast<int>(
      std::clamp<long>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

void ProcessElementFacets(CDMCOBOLRecordItem* item, CDMXMLElement const* element,
                          RecordBuilder& builder) {
  if (item == nullptr) return;
  CDMXMLElement const* holder = element == nullptr ? item->schemaElement : element;
  if (holder == nullptr) return;
  EnumerationList enumerations(item, holder, builder);
  for (CDMXMLElement const* facet : holder->getChildElements()) {
    FacetType type = getFacetType(facet);
    switch (type) {
      case FacetType::pattern:
        warnPattern(item);
        break;
      case FacetType::whiteSpace:
        // The value is read from the holder, not from the facet.
        if (auto value = findAttrByName(holder, "value")) warnWhiteSpace(*value, item);
        break;
      case FacetType::maxInclusive:
      case FacetType::maxExclusive:
      case FacetType::minInclusive:
      case FacetType::minExclusive:
        warnRange(kFacetNames[static_cast<std::size_t>(type)], item);
        break;
      case FacetType::other:
        break;
      default:
        if (auto value = findAttrByName(facet, "value")) {
          applyValue(facet, type, *value, item, enumerations, builder);
        }
        break;
    }
  }
}

void EnumerationList::begin() {
  m_hasBegun = true;
  if (CDMXMLNode::getNonQualifiedName(m_holder->name) == "restriction") {
    for (CDMCOBOLRecordItem* condition : m_item->removeConditions()) {
      m_builder.store().release(condition);
    }
  }
  for (std::size_t place = 0; place < m_item->children.size(); ++place) {
    CDMCOBOLRecordItem const* child = m_item->children[place];
    if (child == nullptr || child->levelNumber != kConditionLevel) continue;
    m_places.emplace(child->itemValue, place);
  }
}

void EnumerationList::add(std::string_view value) {
  if (!m_hasBegun) begin();
  std::size_t const end = m_item->children.size();
  auto [entry, isNew] = m_places.emplace(value, end);
  m_number += entry->second;
  if (!isNew) return;
  CDMCOBOLRecordItem* condition = m_builder.store().create();
  condition->levelNumber = kConditionLevel;
  condition->indent = m_item->indent + 1;
  m_builder.setMadeName(condition, "enumerator-" + std::to_string(m_number));
  condition->itemValue = value;
  condition->parent = m_item;
  m_item->addChild(condition);
  m_number = 0;
}

}  // namespace fdmorph
