// CDMCOBOLGenerator: the facets of a restriction. Length and digit facets
// change the picture, enumerations become condition names, and the rest is
// reported as not supported.

#include <algorithm>

#include "cobol/DMCOBOLGenerator.h"
#include "cobol/decimal_text.h"
#include "cobol/enumeration_list.h"
#include "cobol/facet_type.h"
#include "text/console.h"

namespace fdmorph {
namespace {

void raiseSize(CDMCOBOLRecordItem* item, std::string_view value) {
  if (item->pictureSize.empty() || decimalValue(item->pictureSize) < decimalValue(value)) {
    item->pictureSize = value;
  }
}

void warnPattern(CDMCOBOLRecordItem const* item) {
  err() << "Warning : This version of FDMORPH does not support"
        << " the <pattern> element facet for element " << item->identifiedBy << endLine;
}

void warnRange(char const* message, CDMCOBOLRecordItem const* item) {
  err() << message << item->identifiedBy << endLine;
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

}  // namespace

void CDMCOBOLGenerator::ProcessElementFacets(CDMCOBOLRecordItem* item, CDMXMLElement* element) {
  if (item == nullptr) return;
  CDMXMLElement* holder = element == nullptr ? item->schemaElement : element;
  if (holder == nullptr) return;
  EnumerationList enumerations(item, holder, m_store);
  for (CDMXMLElement* facet : holder->getChildElements()) {
    FacetType type = getFacetType(facet);
    std::string_view value;
    bool hasValue = findAttrByName(facet, "value", value);
    switch (type) {
      case FacetType::length:
      case FacetType::maxLength:
        if (hasValue) item->pictureSize = value;
        break;
      case FacetType::minLength:
        if (hasValue) raiseSize(item, value);
        break;
      case FacetType::totalDigits:
        if (hasValue) item->totalDigits = decimalValue(value);
        break;
      case FacetType::fractionDigits:
        if (hasValue) item->fractionDigits = value;
        break;
      case FacetType::enumeration:
        if (!hasValue) break;
        enumerations.add(value);
        // The last child of any kind decides, not the last enumeration.
        if (facet->getNextSibling() == nullptr) item->addChild(makeValueItem(item));
        break;
      case FacetType::pattern:
        warnPattern(item);
        break;
      case FacetType::whiteSpace:
        // Asked of the holder, not of the facet.
        if (findAttrByName(holder, "value", value)) warnWhiteSpace(value, item);
        break;
      case FacetType::maxInclusive:
        warnRange(
            "Warning : This version of FDMORPH does not support the maxInclusive facet "
            "for the element ",
            item);
        break;
      case FacetType::maxExclusive:
        warnRange(
            "Warning : This version of FDMORPH does not support the maxExclusive facet "
            "for the element ",
            item);
        break;
      case FacetType::minInclusive:
        warnRange(
            "Warning : This version of FDMORPH does not support the minInclusive facet "
            "for the element ",
            item);
        break;
      case FacetType::minExclusive:
        warnRange(
            "Warning : This version of FDMORPH does not support the minExclusive facet "
            "for the element ",
            item);
        break;
      case FacetType::other:
        break;
    }
  }
}

}  // namespace fdmorph
