#include "dictionary/schema_content.h"

#include <string>

#include "cobol/facets.h"
#include "dictionary/dictionary_writer.h"

namespace fdmorph {
namespace {

constexpr int kUnitsOfNational = 2;

using enum DATADICT_ELEMENT_TYPE;

/// How the content of an item is written.
enum class ContentForm { length, digits, plain };

bool isCharacterType(CDMXMLElement const& element, ItemName const& name) {
  return name.xmlType == "string" &&
         !isComputational(attributeOf(&element, "usage").value_or(std::string_view()));
}

bool isFixedPointType(ItemName const& name) {
  return name.xmlType == "decimal" || name.xmlType == "integer";
}

ContentForm contentForm(CDMXMLElement const& element, ItemName const& name) {
  if (!hasFacets(getDataDictElementType(&element))) return ContentForm::plain;
  if (isCharacterType(element, name) && attributeOf(&element, "length")) return ContentForm::length;
  if (isFixedPointType(name) && attributeOf(&element, "digits")) return ContentForm::digits;
  return ContentForm::plain;
}

// Whether a restriction is closed.
bool isRestricted(CDMXMLElement const& element, ItemName const& name) {
  return hasFacets(getDataDictElementType(&element)) &&
         (isCharacterType(element, name) || isFixedPointType(name)) &&
         (hasChildren(element) || attributeOf(&element, "length"));
}

void openRestriction(XmlFormatter& xml, std::string_view base, unsigned indent) {
  writeIndent(xml, indent) << "<simpleType>\n";
  writeIndent(xml, indent + kXmlStep);
  writeElem(xml, "restriction");
  writeAttr(xml, "base", base) << ">\n";
}

void closeRestriction(XmlFormatter& xml, unsigned indent) {
  writeIndent(xml, indent + kXmlStep) << "</restriction>\n";
  writeIndent(xml, indent) << "</simpleType>\n";
}

void writeFacet(XmlFormatter& xml, std::string_view facet, std::string_view value,
                unsigned indent) {
  writeIndent(xml, indent);
  writeElem(xml, facet);
  writeAttr(xml, "value", value) << "/>\n";
}

std::string maxLength(CDMXMLElement const& element) {
  int length = decimalValue(*attributeOf(&element, "length"));
  bool isNational = getDataDictElementType(&element) == DD_NATIONAL;
  return std::to_string(isNational ? length / kUnitsOfNational : length);
}

DATADICT_ELEMENT_TYPE kindOfFirstValue(CDMXMLElement const& condition) {
  CDMXMLElement const* value = condition.getFirstChildElem();
  return value == nullptr ? DD_NONE : getDataDictElementType(value);
}

// Only the first condition of the item counts: a range in a later one
// suppresses nothing.
bool beginsWithRange(CDMXMLElement const& condition) {
  CDMXMLElement const* item = condition.getParent();
  CDMXMLElement const* first = item == nullptr ? &condition : item->getFirstChildElem();
  return isRange(kindOfFirstValue(*first));
}

bool hasEarlierConstant(CDMXMLElement const& condition) {
  for (CDMXMLElement const* at = condition.getPrevSibling(); at != nullptr;
       at = at->getPrevSibling()) {
    if (isConstant(kindOfFirstValue(*at))) return true;
  }
  return false;
}

}  // namespace

void openItemContent(XmlFormatter& xml, CDMXMLElement const& element, ItemName const& name,
                     unsigned indent) {
  unsigned facetIndent = indent + 3 * kXmlStep;
  switch (contentForm(element, name)) {
    case ContentForm::length:
      xml << ">\n";
      openRestriction(xml, name.xmlType, indent + kXmlStep);
      writeFacet(xml, "maxLength", maxLength(element), facetIndent);
      return;
    case ContentForm::digits:
      xml << ">\n";
      openRestriction(xml, name.xmlType, indent + kXmlStep);
      writeFacet(xml, "totalDigits", *attributeOf(&element, "digits"), facetIndent);
      if (name.xmlType == "decimal") {
        std::optional<std::string_view> alignment = attributeOf(&element, "alignment");
        if (alignment) writeFacet(xml, "fractionDigits", *alignment, facetIndent);
      }
      break;
    case ContentForm::plain:
      // An enumeration can stand inside only without the type.
      if (!hasChildren(element)) writeAttr(xml, "type", name.xmlType);
      break;
  }
  if (hasChildren(element)) xml << ">\n";
}

void closeItemContent(XmlFormatter& xml, CDMXMLElement const& element, ItemName const& name,
                      std::string_view tag, unsigned indent) {
  if (isRestricted(element, name)) {
    closeRestriction(xml, indent + kXmlStep);
  } else if (!hasChildren(element)) {
    xml << "/>\n";
    return;
  }
  writeIndent(xml, indent) << "</" << tag << ">\n";
}

bool hasNamedType(CDMXMLElement const& element, ItemName const& name) {
  return contentForm(element, name) == ContentForm::plain && !hasChildren(element);
}

bool isContentBalanced(CDMXMLElement const& element, ItemName const& name) {
  if (hasChildren(element)) return true;
  return (contentForm(element, name) != ContentForm::plain) == isRestricted(element, name);
}

void writeEnumeration(XmlFormatter& xml, CDMXMLElement const& constant, unsigned indent) {
  CDMXMLElement const* condition = constant.getParent();
  std::optional<std::string_view> value = attributeOf(&constant, "value");
  if (condition == nullptr || beginsWithRange(*condition) || !value) return;
  if (!hasEarlierConstant(*condition)) {
    openRestriction(xml, getXmlType(&constant), indent + kXmlStep);
  }
  writeFacet(xml, "enumeration", *value, indent + 3 * kXmlStep);
  if (condition->getNextSibling() == nullptr) closeRestriction(xml, indent + kXmlStep);
}

}  // namespace fdmorph
