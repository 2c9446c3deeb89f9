// The compiler's data dictionary: the kinds of its elements and what the
// writers read from them. Elements that are not named here are skipped, with
// everything below them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "xml/DMXMLElement.h"

namespace fdmorph {

enum class DATADICT_ELEMENT_TYPE : unsigned {
  DD_NONE = 0,
  DD_PROGRAM = 1,
  DD_GROUP = 2,
  DD_DATAITEMS = 3,
  DD_NUMERIC = 4,
  DD_ALPHANUMERIC = 5,
  DD_ALPHANUMERIC_EDITED = 6,
  DD_NUMERIC_EDITED = 7,
  DD_ALPHANUMERIC_CONSTANT = 8,
  DD_NUMERIC_CONSTANT = 9,
  DD_ALPHANUMERIC_RANGE = 10,
  DD_NUMERIC_RANGE = 11,
  DD_ALPHANUMERIC_CONDITION = 12,
  DD_NUMERIC_CONDITION = 13,
  DD_PROPERTIES = 14,
  DD_FILE_SECTION = 15,
  DD_ENTRY_POINTS = 16,
  DD_FD = 17,
  DD_NATIONAL = 18,
};

/// The kind of `element` by the local part of its name, case included.
DATADICT_ELEMENT_TYPE getDataDictElementType(CDMXMLElement const* element);

/// Items with a picture of their own.
bool isElementary(DATADICT_ELEMENT_TYPE kind);

/// Elementary items whose size becomes a facet: all but numeric edited ones.
bool hasFacets(DATADICT_ELEMENT_TYPE kind);

/// Elementary items and groups.
bool isDataItem(DATADICT_ELEMENT_TYPE kind);

/// Constants and ranges below a condition.
bool isConditionValue(DATADICT_ELEMENT_TYPE kind);
bool isConstant(DATADICT_ELEMENT_TYPE kind);
bool isRange(DATADICT_ELEMENT_TYPE kind);

/// Condition names (level 88).
bool isCondition(DATADICT_ELEMENT_TYPE kind);

/// The program and the lists of records in it.
bool isContainer(DATADICT_ELEMENT_TYPE kind);

/// The value of an attribute of `element`, a view of the element's own text;
/// nothing if the element does not have it.
std::optional<std::string_view> attributeOf(CDMXMLElement const* element, std::string_view name);

/// Whether an attribute of `element` has exactly this value.
bool attributeIs(CDMXMLElement const* element, std::string_view name, std::string_view value);

/// The data name of `element`, empty without one.
std::string_view dataNameOf(CDMXMLElement const* element);

/// Whether a data name is "filler", in any case.
bool isFiller(std::string_view name);

/// Whether a usage is one of the computational ones, in any case.
bool isComputational(std::string_view usage);

/// The local name of the built-in type (XML Schema: Datatypes) for an item, by
/// its kind, usage and alignment alone: sizes become facets. Every item that is
/// not numeric is a "string".
std::string_view getXmlType(CDMXMLElement const* element);

/// The key of an item: the names from the top of its record down to it, with
/// dots between. The path ends below the first ancestor without a name; an item
/// without a name has an empty key.
std::string getQualifiedNameAttr(CDMXMLElement const* element);

}  // namespace fdmorph
