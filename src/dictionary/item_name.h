// What an item is called in XML.
#pragma once

#include <string_view>

#include "dictionary/DMXMLCOBOLExternalMapping.h"
#include "xml/DMXMLElement.h"

namespace fdmorph {

/// The name and settings of an item, by its dictionary entry and, where there
/// is one, its entry in the mapping. Texts are views of those two.
struct ItemName {
  std::string_view xmlName;  ///< empty: the item has no place in XML
  std::string_view xmlType;
  std::string_view xmlNamespace;
  bool isAttribute = false;
  bool countIn = true;
};

/// Lets the mapping's entry for `element`, if there is one, replace all of
/// `name`; an empty text does so too. The count-in flag can only be switched
/// off. True if an entry was found.
bool ApplyExternalMappingFile(CDMXMLElement const* element,
                              CDMXMLCOBOLExternalMapping const* mapping, ItemName& name);

/// The dictionary's name as it stands, the type that goes with its picture,
/// and no name for a filler.
ItemName defaultNameOf(CDMXMLElement const* element, bool countIn);

}  // namespace fdmorph
