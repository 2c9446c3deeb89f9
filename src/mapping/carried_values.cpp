#include "mapping/carried_values.h"

#include <algorithm>

#include "dictionary/schema_content.h"

namespace fdmorph::mapping {
namespace {

constexpr std::array<std::string_view, 6> kDefaultTypes{kGroupType, "string", "integer",
                                                        "decimal",  "float",  "double"};

// Whether the schema can have the type of an entry.
bool canHaveType(CDMXMLElement const& item, MappingTexts const& texts) {
  std::string const& type = texts[MappingField::type];
  bool const isGroup = getDataDictElementType(&item) == DATADICT_ELEMENT_TYPE::DD_GROUP;
  if (isGroup || type == kGroupType) return isGroup && type == kGroupType;
  ItemName name;
  name.xmlName = texts[MappingField::name];
  name.xmlType = type;
  return isContentBalanced(item, name);
}

}  // namespace

bool isDefaultType(std::string_view type) {
  return std::ranges::find(kDefaultTypes, type) != kDefaultTypes.end();
}

MappingTexts effectiveTexts(MappingEntry const& entry) {
  MappingTexts texts = entry.texts;
  if (!entry.has(MappingField::countIn)) texts[MappingField::countIn] = "true";
  if (!entry.has(MappingField::attribute)) texts[MappingField::attribute] = "false";
  return texts;
}

CarriedValues carryValues(MappingEntry const& entry, CDMXMLElement const& item,
                          MappingTexts const& fresh, MappingTexts const* old) {
  CarriedValues values{effectiveTexts(entry), std::nullopt};
  for (std::size_t i = 0; old != nullptr && i < kMappingFields; ++i) {
    if (values.texts.all[i] == old->all[i]) values.texts.all[i] = fresh.all[i];
  }
  values.texts[MappingField::key] = fresh[MappingField::key];
  if (!canHaveType(item, values.texts)) {
    std::string& type = values.texts[MappingField::type];
    if (!type.empty() && type != kGroupType) values.lostType = type;
    type = fresh[MappingField::type];
  }
  return values;
}

}  // namespace fdmorph::mapping
