#include "mapping/entry_rules.h"

#include <algorithm>

#include "dictionary/schema_content.h"
#include "mapping/suggestions.h"
#include "source/diagnostics.h"
#include "text/xml_names.h"

namespace fdmorph::mapping {
namespace {

using enum MappingField;

// The namespace of the first record of the data items is that of the schema.
std::string_view targetNamespace(CheckedMapping const& mapping) {
  for (DescribedItem const& each : mapping.data.items()) {
    if (getDataDictElementType(each.element->getParent()) != DATADICT_ELEMENT_TYPE::DD_DATAITEMS) {
      continue;
    }
    MappingEntry const* entry = mapping.entryOf(each);
    return entry == nullptr ? std::string_view() : entry->texts[uri];
  }
  return {};
}

class EntryRules {
 public:
  EntryRules(CheckedMapping const& mapping, MappingFindings& findings)
      : m_mapping(mapping), m_findings(findings), m_target(targetNamespace(mapping)) {}

  void check() {
    for (MappingEntry const& each : m_mapping.content.entries) checkEntry(each);
  }

 private:
  void checkEntry(MappingEntry const& entry) {
    checkFlag(entry, countIn);
    checkFlag(entry, attribute);
    if (entry.key().empty()) {
      report(MappingCode::key, entry, key, "expected the name of an item, found none");
      return;
    }
    auto const [first, isNew] = m_first.emplace(entry.key(), &entry);
    if (!isNew) checkDuplicate(*first->second, entry);
    std::span<std::size_t const> const items = m_mapping.data.find(entry.key());
    if (items.empty()) {
      checkUnknown(entry);
      return;
    }
    // Of the fillers of a group, some may have no effect.
    auto const effective = std::ranges::find_if(
        items, [this](std::size_t index) { return m_mapping.data.items()[index].isEffective(); });
    bool const isEffective = effective != items.end();
    DescribedItem const& item = m_mapping.data.items()[isEffective ? *effective : items.front()];
    if (!isEffective) {
      report(MappingCode::noEffect, entry, key, whyWithoutEffect(item));
      return;
    }
    checkName(entry, item);
    checkType(entry, item);
    checkUri(entry, item);
  }

  void checkFlag(MappingEntry const& entry, MappingField field) {
    std::string const& text = entry.texts[field];
    if (!entry.has(field) || text == "true" || text == "false") return;
    report(MappingCode::flag, entry, field,
           "expected 'true' or 'false', found " + compiler::quoted(text) +
               ", which counts as 'false'");
  }

  // fdmorph writes an entry for each of the fillers of a group, all under one key.
  void checkDuplicate(MappingEntry const& first, MappingEntry const& entry) {
    bool const isSame = std::ranges::equal(first.texts.all, entry.texts.all);
    bool const isFillers = m_mapping.data.find(entry.key()).size() > 1 &&
                           first.texts[name].empty() && entry.texts[name].empty();
    if (isSame || isFillers) return;
    TagPlace const place = placeOf(m_mapping.document, first, key);
    report(MappingCode::duplicate, entry, key,
           "the entry in line " + std::to_string(place.line) + " counts, not this one");
  }

  void checkUnknown(MappingEntry const& entry) {
    if (m_mapping.data.isElsewhere(entry.key())) {
      report(MappingCode::noEffect, entry, key,
             "the item is in no part of the source that is converted; --record chooses its record");
      return;
    }
    if (!m_suggestions) m_suggestions.emplace(m_mapping.data);
    std::size_t const item = m_suggestions->suggest(entry.key());
    std::string text = "no item has this name";
    if (item != kNone) {
      text += "; did you mean " + compiler::quoted(m_mapping.data.items()[item].key) + "?";
    }
    report(MappingCode::item, entry, key, text);
  }

  static std::string whyWithoutEffect(DescribedItem const& item) {
    switch (item.standing) {
      case Standing::redefinition:
        return "no effect: redefinitions are not converted";
      case Standing::otherRecord:
        return "no effect: only the first record is converted; --record chooses another";
      case Standing::condition:
        return "no effect: a condition has no element";
      default:
        return "no effect: a file has no element";
    }
  }

  void checkName(MappingEntry const& entry, DescribedItem const& item) {
    std::string const& text = entry.texts[name];
    if (item.standing == Standing::fillerGroup) {
      if (text.empty()) return;
      report(MappingCode::noEffect, entry, name,
             "the copybook gets this name, but a group called FILLER has no element");
    } else if (!entry.has(name)) {
      report(MappingCode::name, entry, name,
             "expected 'xml-name'; an empty one leaves an item out");
    } else if (text.empty()) {
      if (item.isGroup) {
        report(MappingCode::emptyGroup, entry, name,
               "a group cannot be left out: its element would have no name");
      }
      return;
    }
    if (text.empty() || isNcName(text)) return;
    std::string const why = isNcName(trimmed(text)) ? "; white space counts" : "";
    report(MappingCode::name, entry, name, compiler::quoted(text) + " is not a name in XML" + why);
  }

  void checkType(MappingEntry const& entry, DescribedItem const& item) {
    std::string const& text = entry.texts[type];
    if (item.isGroup) {
      if (text.empty() || text == kGroupType) return;
      report(MappingCode::groupType, entry, type, "no effect: the type of a group is its members");
      return;
    }
    if (entry.texts[name].empty()) return;
    if (!isBuiltinType(text)) {
      std::string const found = text.empty() ? "none" : compiler::quoted(text);
      report(MappingCode::type, entry, type,
             "expected a type of XML Schema, found " + found + suggestType(text));
    } else if (entry.isAttribute() && text == "anyType") {
      report(MappingCode::type, entry, type, "an attribute cannot be of 'anyType'");
    } else if (!isContentBalanced(*item.element, m_mapping.nameOf(item))) {
      report(MappingCode::typeForm, entry, type,
             compiler::quoted(text) + " makes the schema malformed: the item is generated as " +
                 compiler::quoted(getXmlType(item.element)) + ", with a length and without digits");
    }
  }

  void checkUri(MappingEntry const& entry, DescribedItem const& item) {
    std::string const& text = entry.texts[uri];
    if (text.empty()) return;
    if (text.find_first_of(" \t\r\n\"<>") != text.npos) {
      report(MappingCode::uri, entry, uri, compiler::quoted(text) + " is not a URI");
    } else if (text != m_target && item.standing != Standing::fillerGroup) {
      report(MappingCode::otherNamespace, entry, uri,
             "the schema is invalid with another namespace than that of the record");
    }
  }

  void report(MappingCode code, MappingEntry const& entry, MappingField field, std::string text) {
    m_findings.add({code, placeOf(m_mapping.document, entry, field), entry.key(), std::move(text)});
  }

  CheckedMapping const& m_mapping;
  MappingFindings& m_findings;
  std::string_view m_target;
  std::unordered_map<std::string_view, MappingEntry const*> m_first;
  std::optional<KeySuggestions> m_suggestions;
};

}  // namespace

void checkEntries(CheckedMapping const& mapping, MappingFindings& findings) {
  EntryRules(mapping, findings).check();
}

CheckedMapping::CheckedMapping(MappingDocument const& mappingDocument,
                               MappingContent const& mappingContent,
                               DescribedData const& describedData)
    : document(mappingDocument), content(mappingContent), data(describedData) {
  for (MappingEntry const& each : content.entries) m_entries.emplace(each.key(), &each);
}

MappingEntry const* CheckedMapping::entryOf(DescribedItem const& item) const {
  auto const found = m_entries.find(item.key);
  return found == m_entries.end() ? nullptr : found->second;
}

ItemName CheckedMapping::nameOf(DescribedItem const& item) const {
  ItemName name = defaultNameOf(item.element, true);
  if (MappingEntry const* entry = entryOf(item)) {
    name.xmlName = entry->texts[MappingField::name];
    name.xmlType = entry->texts[MappingField::type];
    name.xmlNamespace = entry->texts[MappingField::uri];
    name.isAttribute = entry->isAttribute();
    name.countIn = entry->hasCountIn();
  }
  return name;
}

}  // namespace fdmorph::mapping
