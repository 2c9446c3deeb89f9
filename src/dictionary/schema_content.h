// The content of an elementary item in the schema: its type with the facets,
// and the enumerations that conditions become.
#pragma once

#include <string_view>

#include "dictionary/DMXMLCOBOLExternalMapping.h"
#include "xml/DMDOMFormatTarget.h"
#include "xml/DMXMLElement.h"

namespace fdmorph {

/// Goes on in the start tag of an elementary item, and opens a restriction if
/// the item has facets. Indentations are in blanks, here and below.
void openItemContent(XmlFormatter& xml, CDMXMLElement const& element, ItemName const& name,
                     unsigned indent);

/// Writes what ends the item, which has the tag `tag`. Whether a restriction is
/// closed depends on the length of the item alone: with digits but without a
/// length the restriction stays open.
void closeItemContent(XmlFormatter& xml, CDMXMLElement const& element, ItemName const& name,
                      std::string_view tag, unsigned indent);

/// Whether the item has the name of its type in its tag, and no type of its own.
bool hasNamedType(CDMXMLElement const& element, ItemName const& name);

/// Whether what openItemContent opens is what closeItemContent closes. A type of the
/// user can go against that; conditions are not looked at.
bool isContentBalanced(CDMXMLElement const& element, ItemName const& name);

/// Writes one value of a condition as an enumeration. Whether a simple type is
/// opened and closed around it depends on the conditions beside its own and not
/// on the values, so a condition with several values gets several types.
void writeEnumeration(XmlFormatter& xml, CDMXMLElement const& constant, unsigned indent);

}  // namespace fdmorph
