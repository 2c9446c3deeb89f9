#include "compiler/name_index.h"

namespace fdmorph::compiler {
namespace {

// Items looked at over all searches. A source needs as many only if it has far
// more items of one name than its references can tell apart.
constexpr std::uint64_t kMostSteps = 20'000'000;

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
  m_inRecords.reserve(data.items.size());
  for (DataItem& item : data.items) {
    if (!isData(item) || isFillerName(item.name)) continue;
    DataItem*& last = m_items[item.name];
    item.sameName = last;
    last = &item;
    DataItem*& lastInRecord = m_inRecords[{recordOf(item), item.name}];
    item.sameInRecord = lastInRecord;
    lastInRecord = &item;
  }
  for (FileDescription const& file : data.files) {
    for (DataItem const* record = file.records.first; record != nullptr; record = record->next) {
      m_files[record] = file.name;
    }
  }
}

NameIndex::Outcome NameIndex::resolve(QualifiedName const& name, DataItem const& from,
                                      DataItem*& item) {
  Outcome inRecord = resolveInRecord(name, from, item);
  if (inRecord != Outcome::unknown) return inRecord;
  auto found = m_items.find(name.name);
  return search(name, found == m_items.end() ? nullptr : found->second, &DataItem::sameName, item);
}

NameIndex::Outcome NameIndex::resolveInRecord(QualifiedName const& name, DataItem const& from,
                                              DataItem*& item) {
  auto found = m_inRecords.find({recordOf(from), name.name});
  DataItem* first = found == m_inRecords.end() ? nullptr : found->second;
  return search(name, first, &DataItem::sameInRecord, item);
}

NameIndex::Outcome NameIndex::search(QualifiedName const& name, DataItem* first, Chain chain,
                                     DataItem*& item) {
  DataItem* match = nullptr;
  for (DataItem* each = first; each != nullptr; each = each->*chain) {
    if (++m_steps > kMostSteps) return Outcome::ambiguous;
    if (!fits(name, *each)) continue;
    if (match != nullptr) return Outcome::ambiguous;
    match = each;
  }
  if (match == nullptr) return Outcome::unknown;
  item = match;
  return Outcome::found;
}

// Qualifiers name groups around the item, from the inside out, and its file.
bool NameIndex::fits(QualifiedName const& name, DataItem const& item) const {
  DataItem const* group = item.parent;
  for (std::string_view qualifier : name.qualifiers) {
    while (group != nullptr && !equalsBlindly(group->name, qualifier)) group = group->parent;
    if (group == nullptr) {
      auto file = m_files.find(recordOf(item));
      return file != m_files.end() && equalsBlindly(file->second, qualifier);
    }
    group = group->parent;
  }
  return true;
}

}  // namespace fdmorph::compiler
