#include "mapping/mapping_entries.h"

#include <algorithm>

namespace fdmorph::mapping {
namespace {

/// Takes the elements in the order of the file, as fdmorph does.
class EntryReader {
 public:
  explicit EntryReader(MappingDocument const& document)
      : m_document(document), m_states(document.elements.size()) {}

  MappingContent read() {
    for (std::size_t i = 0; i < m_states.size(); ++i) take(i);
    takeRemarks();
    return std::move(m_content);
  }

 private:
  struct State {
    bool isRead = true;         // false below an unknown element
    std::size_t entry = kNone;  // that the children belong to
  };

  void take(std::size_t index) {
    MappingElement const& element = m_document.elements[index];
    State& state = m_states[index];
    if (element.parent != kNone) state = m_states[element.parent];
    if (!state.isRead) return;
    if (element.name == kMappingFileElement) {
      if (element.parent != kNone) m_content.misplaced.push_back(index);
    } else if (element.name == kMappingElement) {
      if (!isIn(index, kMappingFileElement)) m_content.misplaced.push_back(index);
      state.entry = m_content.entries.size();
      m_content.entries.emplace_back().element = index;
    } else if (std::optional<MappingField> const field = fieldOf(element.name)) {
      takeField(index, *field, state.entry);
    } else {
      state.isRead = false;
      m_content.foreign.push_back({index, m_content.entries.size() - m_discarded});
      m_discarded = m_content.entries.size();
    }
  }

  void takeField(std::size_t index, MappingField field, std::size_t entry) {
    if (entry == kNone) {
      m_content.outside.push_back(index);
      return;
    }
    if (!isIn(index, kMappingElement)) m_content.misplaced.push_back(index);
    MappingEntry& taken = m_content.entries[entry];
    std::size_t& known = taken.elements[static_cast<std::size_t>(field)];
    if (known != kNone) m_content.repeated.push_back(known);
    known = index;
    taken.texts[field] = m_document.elements[index].value;
  }

  [[nodiscard]] bool isIn(std::size_t index, std::string_view name) const {
    std::size_t const parent = m_document.elements[index].parent;
    return parent != kNone && m_document.elements[parent].name == name;
  }

  // A comment in an entry, or after it on its last line, belongs to the entry, and
  // any other to the entry that follows.
  void takeRemarks() {
    for (MappingRemark const& each : m_document.remarks) listOf(each).push_back(each.markup);
  }

  std::vector<std::string>& listOf(MappingRemark const& remark) {
    if (remark.parent == kNone) return remark.next == 0 ? m_content.head : m_content.tail;
    std::vector<MappingEntry>& entries = m_content.entries;
    std::size_t const around = m_states[remark.parent].entry;
    if (around != kNone) return entries[around].remarks;
    auto next = std::ranges::lower_bound(entries, remark.next, {}, &MappingEntry::element);
    if (remark.isAfterText && next != entries.begin()) return (next - 1)->remarks;
    return next == entries.end() ? m_content.end : next->remarks;
  }

  MappingDocument const& m_document;
  std::vector<State> m_states;
  MappingContent m_content;
  std::size_t m_discarded = 0;  // entries
};

}  // namespace

std::optional<MappingField> fieldOf(std::string_view elementName) {
  auto const found = std::ranges::find(kMappingFieldNames, elementName);
  if (found == kMappingFieldNames.end()) return std::nullopt;
  return static_cast<MappingField>(found - kMappingFieldNames.begin());
}

MappingContent readEntries(MappingDocument const& document) {
  return EntryReader(document).read();
}

TagPlace placeOf(MappingDocument const& document, MappingEntry const& entry, MappingField field) {
  std::size_t const value = entry.elements[static_cast<std::size_t>(field)];
  if (value != kNone) return document.elements[value].textPlace;
  return document.elements[entry.element].place;
}

}  // namespace fdmorph::mapping
