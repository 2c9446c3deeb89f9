#include "dictionary/copybook_clauses.h"

#include "dictionary/data_dictionary.h"

namespace fdmorph {
namespace {

using enum DATADICT_ELEMENT_TYPE;

void appendUsage(CDMXMLElement const* element, std::string& line) {
  std::optional<std::string_view> usage = attributeOf(element, "usage");
  if (!usage || *usage == "display") return;
  line += " usage is ";
  line += getDataDictElementType(element) == DD_NATIONAL ? "national" : *usage;
}

void appendOccurs(CDMXMLElement const* element, std::string& line) {
  std::optional<std::string_view> maxOccurs = attributeOf(element, "maxOccurs");
  if (!maxOccurs || *maxOccurs == "1") return;
  line += " occurs ";
  std::optional<std::string_view> minOccurs = attributeOf(element, "minOccurs");
  if (minOccurs && *minOccurs != *maxOccurs) (line += *minOccurs) += " to ";
  (line += *maxOccurs) += " times";
  std::string_view object = attributeOf(element, "odo").value_or(std::string_view());
  // The name alone; without the prefix, though the object's own entry has it.
  object = object.substr(object.rfind('.') + 1);
  if (!object.empty()) (line += " depending on ") += object;
}

void appendSign(CDMXMLElement const* element, std::string& line) {
  std::string_view sign = attributeOf(element, "sign").value_or(std::string_view());
  if (sign == "li" || sign == "ls") line += " sign is leading";
  if (sign == "ts") line += " sign is trailing";
  if (sign == "ls" || sign == "ts") line += " separate";
}

// A condition's values follow the item that the condition belongs to.
bool isQuoted(CDMXMLElement const* element) {
  DATADICT_ELEMENT_TYPE kind = getDataDictElementType(element);
  if (isConditionValue(kind)) {
    CDMXMLElement const* condition = element->getParent();
    CDMXMLElement const* item = condition == nullptr ? nullptr : condition->getParent();
    kind = item == nullptr ? DD_NONE : getDataDictElementType(item);
  }
  return kind == DD_ALPHANUMERIC || kind == DD_ALPHANUMERIC_EDITED || kind == DD_NATIONAL;
}

void appendValues(CDMXMLElement const* element, std::string& line) {
  std::string_view quote = isQuoted(element) ? "\"" : "";
  auto appendValue = [&](std::string_view value) { ((line += quote) += value) += quote; };
  if (std::optional<std::string_view> value = attributeOf(element, "value")) {
    line += " value is ";
    appendValue(*value);
  }
  std::optional<std::string_view> from = attributeOf(element, "from");
  std::optional<std::string_view> to = attributeOf(element, "to");
  if (!from || !to) return;
  // Quotes alone make a text that isn't empty.
  if (quote.empty() && (from->empty() || to->empty())) return;
  line += " value is ";
  appendValue(*from);
  line += " through ";
  appendValue(*to);
}

}  // namespace

void appendDataClauses(CDMXMLElement const* element, std::string& line) {
  if (std::optional<std::string_view> picture = attributeOf(element, "picture")) {
    (line += " pic ") += *picture;
  }
  appendUsage(element, line);
  appendOccurs(element, line);
  appendSign(element, line);
  if (attributeIs(element, "justified", "right")) line += " justified right";
  if (attributeIs(element, "blankWhenZero", "true")) line += " blank when zero";
  appendValues(element, line);
}

}  // namespace fdmorph
