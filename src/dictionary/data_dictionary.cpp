#include "dictionary/data_dictionary.h"

#include <algorithm>
#include <array>
#include <vector>

#include "text/multibyte.h"

namespace fdmorph {
namespace {

using enum DATADICT_ELEMENT_TYPE;

struct KindName {
  std::string_view name;
  DATADICT_ELEMENT_TYPE kind;
};

constexpr std::array<KindName, 18> kKindNames{{
    {"program", DD_PROGRAM},
    {"fd", DD_FD},
    {"dataItems", DD_DATAITEMS},
    {"group", DD_GROUP},
    {"numeric", DD_NUMERIC},
    {"alphanumeric", DD_ALPHANUMERIC},
    {"alphanumericEdited", DD_ALPHANUMERIC_EDITED},
    {"numericEdited", DD_NUMERIC_EDITED},
    {"alphanumericConstant", DD_ALPHANUMERIC_CONSTANT},
    {"numericConstant", DD_NUMERIC_CONSTANT},
    {"alphanumericRange", DD_ALPHANUMERIC_RANGE},
    {"numericRange", DD_NUMERIC_RANGE},
    {"alphanumericCondition", DD_ALPHANUMERIC_CONDITION},
    {"numericCondition", DD_NUMERIC_CONDITION},
    {"properties", DD_PROPERTIES},
    {"fileSection", DD_FILE_SECTION},
    {"entryPoints", DD_ENTRY_POINTS},
    {"national", DD_NATIONAL},
}};

constexpr std::string_view kFiller = "filler";
constexpr std::string_view kComputational = "comp";

bool beginsWith(std::string_view text, std::string_view head) {
  // A shorter text ends in a terminator, which differs from every letter.
  return my_strnicmp(std::string(text.substr(0, head.size())).c_str(), head.data(),
                     static_cast<int>(head.size())) == 0;
}

}  // namespace

DATADICT_ELEMENT_TYPE getDataDictElementType(CDMXMLElement const* element) {
  std::string_view local = CDMXMLNode::getNonQualifiedName(element->name);
  auto found = std::find_if(kKindNames.begin(), kKindNames.end(),
                            [local](KindName const& each) { return each.name == local; });
  return found == kKindNames.end() ? DD_NONE : found->kind;
}

bool isElementary(DATADICT_ELEMENT_TYPE kind) {
  return hasFacets(kind) || kind == DD_NUMERIC_EDITED;
}

bool hasFacets(DATADICT_ELEMENT_TYPE kind) {
  return kind == DD_NUMERIC || kind == DD_ALPHANUMERIC || kind == DD_ALPHANUMERIC_EDITED ||
         kind == DD_NATIONAL;
}

bool isDataItem(DATADICT_ELEMENT_TYPE kind) {
  return isElementary(kind) || kind == DD_GROUP;
}

bool isConditionValue(DATADICT_ELEMENT_TYPE kind) {
  return isConstant(kind) || isRange(kind);
}

bool isConstant(DATADICT_ELEMENT_TYPE kind) {
  return kind == DD_ALPHANUMERIC_CONSTANT || kind == DD_NUMERIC_CONSTANT;
}

bool isRange(DATADICT_ELEMENT_TYPE kind) {
  return kind == DD_ALPHANUMERIC_RANGE || kind == DD_NUMERIC_RANGE;
}

bool isCondition(DATADICT_ELEMENT_TYPE kind) {
  return kind == DD_ALPHANUMERIC_CONDITION || kind == DD_NUMERIC_CONDITION;
}

bool isContainer(DATADICT_ELEMENT_TYPE kind) {
  return kind == DD_PROGRAM || kind == DD_DATAITEMS || kind == DD_FILE_SECTION || kind == DD_FD;
}

std::optional<std::string_view> attributeOf(CDMXMLElement const* element, std::string_view name) {
  CDMXMLAttribute const* attribute = element->getAttribute(name);
  if (attribute == nullptr) return std::nullopt;
  return attribute->value;
}

bool attributeIs(CDMXMLElement const* element, std::string_view name, std::string_view value) {
  return attributeOf(element, name) == value;
}

std::string_view dataNameOf(CDMXMLElement const* element) {
  return attributeOf(element, "name").value_or(std::string_view());
}

bool isFiller(std::string_view name) {
  return name.size() == kFiller.size() && beginsWith(name, kFiller);
}

bool isComputational(std::string_view usage) {
  return beginsWith(usage, kComputational);
}

std::string_view getXmlType(CDMXMLElement const* element) {
  if (getDataDictElementType(element) != DD_NUMERIC) return "string";
  std::string_view usage = attributeOf(element, "usage").value_or("display");
  if (usage == "comp-1") return "float";
  if (usage == "comp-2") return "double";
  bool isFixedPoint =
      usage == "display" || usage == "comp-3" || usage == "comp-4" || usage == "comp-5";
  if (!isFixedPoint) return "string";
  bool isInteger = attributeOf(element, "alignment").value_or("0") == "0";
  return isInteger ? "integer" : "decimal";
}

std::string getQualifiedNameAttr(CDMXMLElement const* element) {
  std::vector<std::string_view> path;
  for (; element != nullptr; element = element->getParent()) {
    std::optional<std::string_view> name = attributeOf(element, "name");
    if (!name) break;
    path.push_back(*name);
  }
  std::string qualified;
  for (auto name = path.rbegin(); name != path.rend(); ++name) {
    if (name != path.rbegin()) qualified += '.';
    qualified += *name;
  }
  return qualified;
}

}  // namespace fdmorph
