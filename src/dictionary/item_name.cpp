#include "dictionary/item_name.h"

#include "dictionary/data_dictionary.h"
#include "dictionary/xml_type.h"

namespace fdmorph {

bool ApplyExternalMappingFile(CDMXMLElement const* element,
                              CDMXMLCOBOLExternalMapping const* mapping, ItemName& name) {
  if (element == nullptr || mapping == nullptr) return false;
  CDMXMLCOBOLMapping const* entry = mapping->findMapping(element);
  if (entry == nullptr) return false;
  name.xmlName = entry->xmlName;
  name.xmlType = entry->xmlType;
  name.xmlNamespace = entry->xmlNamespace;
  name.isAttribute = entry->xmlAttribute;
  name.countIn = name.countIn && entry->cobolCountIn;
  return true;
}

ItemName defaultNameOf(CDMXMLElement const* element, bool countIn) {
  ItemName name;
  name.xmlName = dataNameOf(element);
  if (isFiller(name.xmlName)) name.xmlName = {};
  name.xmlType = getXmlType(element);
  name.countIn = countIn;
  return name;
}

}  // namespace fdmorph
