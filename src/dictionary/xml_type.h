// The XML Schema types of dictionary items.
#pragma once

#include <string_view>

#include "xml/DMXMLElement.h"

namespace fdmorph {

/// The local name of the built-in type (XML Schema Part 2: Datatypes) for an
/// item, by its kind, usage and alignment alone: sizes become facets. Anything
/// but a numeric item is a "string".
std::string_view getXmlType(CDMXMLElement const* element);

}  // namespace fdmorph
