#include "mapping/group_rules.h"

#include <utility>

#include "dictionary/schema_content.h"
#include "source/diagnostics.h"

namespace fdmorph::mapping {
namespace {

class GroupRules {
 public:
  GroupRules(CheckedMapping const& mapping, MappingFindings& findings)
      : m_mapping(mapping), m_findings(findings), m_members(items().size()) {}

  void check() {
    for (std::size_t i = 0; i < items().size(); ++i) {
      DescribedItem const& item = items()[i];
      if (!item.isEffective()) continue;
      if (item.parent != kNone) m_members[item.parent].push_back(i);
      checkAttribute(item);
    }
    for (std::size_t i = 0; i < items().size(); ++i) {
      if (!items()[i].isGroup || !items()[i].isEffective() || isFillerGroup(items()[i])) continue;
      checkFlags(i);
      Names elements;
      Names attributes;
      checkNames(i, elements, attributes);
    }
  }

 private:
  using Names = std::unordered_map<std::string, std::size_t>;

  [[nodiscard]] std::vector<DescribedItem> const& items() const { return m_mapping.data.items(); }

  static bool isFillerGroup(DescribedItem const& item) {
    return item.isGroup && isFiller(item.name());
  }

  [[nodiscard]] bool isRecord(DescribedItem const& item) const {
    return item.parent == kNone || items()[item.parent].standing == Standing::file;
  }

  void checkAttribute(DescribedItem const& item) {
    MappingEntry const* entry = m_mapping.entryOf(item);
    if (entry == nullptr || !entry->isAttribute()) return;
    if (!item.isGroup && entry->texts[MappingField::name].empty()) return;
    char const* what = nullptr;
    if (isRecord(item)) {
      what = "a record";
    } else if (item.isGroup) {
      what = "a group";
    } else if (attributeOf(item.element, "maxOccurs")) {
      what = "a table";
    } else if (isFillerGroup(items()[item.parent])) {
      what = "an item in a group called FILLER";
    } else {
      return;
    }
    report(MappingCode::attribute, *entry, MappingField::attribute,
           std::string(what) + " cannot be an attribute");
  }

  // A member without an entry is taken for an attribute if the last one before it that
  // has an entry is one. The members are gone through twice, first the elements.
  void checkFlags(std::size_t group) {
    MappingEntry const* last = nullptr;
    std::unordered_set<std::size_t> told;
    for (int pass = 0; pass < 2; ++pass) {
      for (std::size_t each : m_members[group]) {
        if (MappingEntry const* entry = m_mapping.entryOf(items()[each])) {
          last = entry;
        } else if (last != nullptr && last->isAttribute() && told.insert(each).second) {
          report(MappingCode::flagPassedOn, *last, MappingField::attribute,
                 compiler::quoted(items()[each].key) +
                     " has no entry, and would become an attribute like this item");
        }
      }
    }
  }

  // The members of filler groups are members of the group around.
  void checkNames(std::size_t group, Names& elements, Names& attributes) {
    for (std::size_t each : m_members[group]) {
      DescribedItem const& item = items()[each];
      if (isFillerGroup(item)) {
        checkNames(each, elements, attributes);
        continue;
      }
      ItemName const name = m_mapping.nameOf(item);
      if (name.xmlName.empty()) continue;
      Names& names = name.isAttribute ? attributes : elements;
      auto const [first, isNew] = names.emplace(name.xmlName, each);
      if (!isNew && (name.isAttribute || !areOfOneType(items()[first->second], item))) {
        reportSameName(items()[first->second], item, name);
      }
    }
  }

  [[nodiscard]] bool areOfOneType(DescribedItem const& left, DescribedItem const& right) const {
    if (left.isGroup || right.isGroup) return false;
    ItemName const leftName = m_mapping.nameOf(left);
    ItemName const rightName = m_mapping.nameOf(right);
    return hasNamedType(*left.element, leftName) && hasNamedType(*right.element, rightName) &&
           leftName.xmlType == rightName.xmlType;
  }

  void reportSameName(DescribedItem const& first, DescribedItem const& item, ItemName const& name) {
    std::string const text = compiler::quoted(name.xmlName) + " is the name of " +
                             compiler::quoted(first.key) + " as well" +
                             (name.isAttribute ? "" : ", and the types differ");
    MappingEntry const* entry = m_mapping.entryOf(item);
    if (entry == nullptr) entry = m_mapping.entryOf(first);
    TagPlace const place =
        entry == nullptr ? TagPlace() : placeOf(m_mapping.document, *entry, MappingField::name);
    m_findings.add({MappingCode::sameName, place, item.key, text});
  }

  void report(MappingCode code, MappingEntry const& entry, MappingField field, std::string text) {
    m_findings.add({code, placeOf(m_mapping.document, entry, field), entry.key(), std::move(text)});
  }

  CheckedMapping const& m_mapping;
  MappingFindings& m_findings;
  std::vector<std::vector<std::size_t>> m_members;  // of each item that is a group or file
};

}  // namespace

void checkGroups(CheckedMapping const& mapping, MappingFindings& findings) {
  GroupRules(mapping, findings).check();
}

}  // namespace fdmorph::mapping
