#include "compiler/name_index.h"

namespace fdmorph::compiler {
namespace {

// Names that are used that often are ambiguous in any case.
constexpr int kMostCandidates = 1000;

constexpr std::uint8_t kHighestGroupLevel = 49;
constexpr std::uint8_t kRenamesLevel = 66;
constexpr std::uint8_t kSingleLevel = 77;

bool isData(DataItem const& item) {
  return item.level <= kHighestGroupLevel || item.level == kSingleLevel ||
         item.level == kRenamesLevel;
}

}  // namespace

DataItem const* recordOf(DataItem const& item) {
  DataItem const* record = &item;
  while (record->parent != nullptr) record = record->parent;
  return record;
}

bool isFillerName(std::string_view name) {
  return name.empty() || equalsBlindly(name, "FILLER");
}

NameIndex::NameIndex(DataDivision& data) {
  m_items.reserve(data.items.size());
  for (DataItem& item : data.items) {
    if (!isData(item) || isFillerName(item.name)) continue;
    auto [entry, isNew] = m_items.try_emplace(item.name, &item);
    if (isNew) continue;
    item.sameName = entry->second;
    entry->second = &item;
  }
  for (FileDescription const& file : data.files) {
    for (DataItem const* record = file.records.first; record != nullptr; record = record->next) {
      m_files[record] = file.name;
    }
  }
}

NameIndex::Outcome NameIndex::resolve(QualifiedName const& name, DataItem const& from,
                                      DataItem*& item) const {
  Outcome outcome = search(name, nullptr, item);
  if (outcome != Outcome::ambiguous) return outcome;
  bool isFoundHere = search(name, recordOf(from), item) == Outcome::found;
  return isFoundHere ? Outcome::found : Outcome::ambiguous;
}

NameIndex::Outcome NameIndex::resolveInRecord(QualifiedName const& name, DataItem const& from,
                                              DataItem*& item) const {
  return search(name, recordOf(from), item);
}

NameIndex::Outcome NameIndex::search(QualifiedName const& name, DataItem const* record,
                                     DataItem*& item) const {
  auto entry = m_items.find(name.name);
  DataItem* candidate = entry == m_items.end() ? nullptr : entry->second;
  DataItem* match = nullptr;
  int tried = 0;
  for (; candidate != nullptr; candidate = candidate->sameName) {
    if (++tried > kMostCandidates) return Outcome::ambiguous;
    DataItem const* group = candidate->parent;
    bool fits = record == nullptr || recordOf(*candidate) == record;
    for (std::string_view qualifier : name.qualifiers) {
      while (group != nullptr && !equalsBlindly(group->name, qualifier)) group = group->parent;
      if (group == nullptr) {
        auto file = m_files.find(recordOf(*candidate));
        fits = fits && file != m_files.end() && equalsBlindly(file->second, qualifier);
        break;
      }
      group = group->parent;
    }
    if (!fits) continue;
    if (match != nullptr) return Outcome::ambiguous;
    match = candidate;
  }
  if (match == nullptr) return Outcome::unknown;
  item = match;
  return Outcome::found;
}

}  // namespace fdmorph::compiler
