// CDMXMLGenerator: condition names as enumerations of the schema. The header
// and the end of an enumeration are decided by the conditions around it, not
// by the values, so a condition with several values gets several.

#include "dictionary/DMXMLGenerator.h"
#include "dictionary/data_dictionary.h"
#include "dictionary/xml_type.h"
#include "text/console.h"

namespace fdmorph {
namespace {

constexpr unsigned kStep = 3;  // blanks of one level of nesting

DATADICT_ELEMENT_TYPE kindOfFirstValue(CDMXMLElement const* condition) {
  CDMXMLElement const* value = condition->getFirstChildElem();
  return value == nullptr ? DATADICT_ELEMENT_TYPE::DD_NONE : getDataDictElementType(value);
}

// Only the first condition of an item is asked: a range further on suppresses
// nothing.
bool beginsWithRange(CDMXMLElement const* condition) {
  CDMXMLElement const* item = condition->getParent();
  CDMXMLElement const* first = item == nullptr ? condition : item->getFirstChildElem();
  return isRange(kindOfFirstValue(first));
}

bool hasEarlierConstant(CDMXMLElement const* condition) {
  for (CDMXMLElement const* at = condition->getPrevSibling(); at != nullptr;
       at = at->getPrevSibling()) {
    if (isConstant(kindOfFirstValue(at))) return true;
  }
  return false;
}

}  // namespace

void CDMXMLGenerator::writeSchemaConstant(CDMXMLElement const* element, unsigned indent) {
  CDMXMLElement const* condition = element->getParent();
  std::optional<std::string_view> value = attributeOf(element, "value");
  if (condition == nullptr || beginsWithRange(condition) || !value) return;
  if (!hasEarlierConstant(condition)) openRestriction(getXmlType(element), indent + kStep);
  writeIndent(*m_output, indent + 3 * kStep);
  writeElem(*m_output, "enumeration");
  writeAttr(*m_output, "value", *value) << "/>\n";
  if (condition->getNextSibling() == nullptr) closeRestriction(indent + kStep);
}

void CDMXMLGenerator::warnSchemaRange(CDMXMLElement const* element) {
  CDMXMLElement const* condition = element->getParent();
  if (condition == nullptr) return;
  std::optional<std::string_view> name = attributeOf(condition, "name");
  if (!name) return;
  m_output->flush();  // a message may bring the banner out, right here
  err() << "Warning : Data range specifier \"" << *name << "\" is not supported by FDMORPH."
        << endLine;
  err() << "Warning : Due to non-support of data range specifiers, enumerators will not be "
           "generated for the parent element of data-range \""
        << *name << "\"" << endLine;
}

}  // namespace fdmorph
