#include "dictionary/xml_type.h"

#include "dictionary/data_dictionary.h"

namespace fdmorph {

std::string_view getXmlType(CDMXMLElement const* element) {
  if (getDataDictElementType(element) != DATADICT_ELEMENT_TYPE::DD_NUMERIC) return "string";
  std::string_view usage = attributeOf(element, "usage").value_or("display");
  if (usage == "comp-1") return "float";
  if (usage == "comp-2") return "double";
  bool isFixedPoint =
      usage == "display" || usage == "comp-3" || usage == "comp-4" || usage == "comp-5";
  if (!isFixedPoint) return "string";
  bool isInteger = attributeOf(element, "alignment").value_or("0") == "0";
  return isInteger ? "integer" : "decimal";
}

}  // namespace fdmorph
