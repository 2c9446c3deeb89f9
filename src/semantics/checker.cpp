#include "semantics/checker.h"

#include <unordered_set>

#include "semantics/item_rules.h"
#include "semantics/layout.h"
#include "semantics/name_index.h"

namespace fdmorph::compiler {
namespace {

// The innermost table that an item stands in; null if there is none.
DataItem const* tableAround(DataItem const* item) {
  while (item != nullptr && !item->occurs) item = item->parent;
  return item;
}

bool isInTable(DataItem const* item) {
  return tableAround(item) != nullptr;
}

// The translator of the transaction monitor adds this item to the linkage section.
// It is the length of the area that a program is called with.
bool isSystemItem(QualifiedName const& name) {
  return equalsIgnoringCase(name.name, "EIBCALEN");
}

}  // namespace

void Checker::check() {
  for (FileDescription const& file : m_data.files) checkRecords(file.records);
  checkRecords(m_data.workingStorage);
  checkRecords(m_data.localStorage);
  checkRecords(m_data.linkage);
  if (m_hasReferences) checkReferences();
  for (DataItem const& item : m_data.items) {
    bool isCondition = item.level == kConditionLevel;
    DataItem const* described = isCondition ? item.parent : &item;
    if (described != nullptr) checkValues(*described, item.values, m_diagnostics);
  }
  checkFiles();
  checkLengths();
}

void Checker::checkRecords(RecordList const& records) {
  checkSiblings(records.first);
  std::unordered_set<std::string_view, CaseInsensitiveHash, CaseInsensitiveEqual> names;
  for (DataItem* record = records.first; record != nullptr; record = record->next) {
    if (!isFillerName(record->name) && !names.insert(record->name).second) {
      m_diagnostics.report(Code::duplicateName, record->place,
                           "duplicate record name " + quoted(record->name));
    }
    layOut(*record, m_data.sizes, m_diagnostics);
  }
}

// The recursion is bounded by the number of levels.
void Checker::checkSiblings(DataItem* first) {
  Redefinitions redefinitions(m_diagnostics);
  for (DataItem* item = first; item != nullptr; item = item->next) {
    bool isRenames = item->level == kRenamesLevel;
    bool isTableWithNames =
        item->occurs && (item->occurs->isDepending || !item->occurs->keys.empty());
    if (isRenames || isTableWithNames) m_hasReferences = true;
    if (isRenames) continue;
    redefinitions.visit(*item);
    inherit(*item);
    implyPicture(*item, m_data);
    checkItem(*item, m_diagnostics);
    checkSiblings(item->firstChild);
  }
}

void Checker::checkReferences() {
  NameIndex index(m_data);
  index.extend(m_data.items.size());
  for (DataItem& item : m_data.items) {
    if (item.occurs && item.occurs->isDepending) checkDepending(item, index);
    if (item.occurs) checkKeys(item, index);
    if (item.level == kRenamesLevel && item.parent != nullptr) checkRenames(item, index);
  }
}

void Checker::reportName(Code code, QualifiedName const& name, NameIndex::Outcome outcome) {
  bool isUnknown = outcome == NameIndex::Outcome::unknown;
  m_diagnostics.report(code, name.place,
                       quoted(name.name) + (isUnknown ? " is not defined" : " is ambiguous"));
}

// The object of DEPENDING ON; null if it is unknown or ambiguous, which is
// reported.
DataItem const* Checker::findCounter(DataItem const& table, NameIndex& index) {
  QualifiedName const& name = table.occurs->depending;
  auto [outcome, object] = index.resolve(name, table);
  if (outcome == NameIndex::Outcome::found) return object;
  if (isSystemItem(name)) return nullptr;
  if (outcome == NameIndex::Outcome::unknown && name.qualifiers.empty()) {
    DataItem const* record = recordOf(table);
    auto [ends, isNew] = m_integers.try_emplace(record, *record);
    auto [prefixed, isAmbiguous] = ends->second.findBefore(table, name.name);
    if (isAmbiguous) outcome = NameIndex::Outcome::ambiguous;
    if (prefixed != nullptr) {
      reportPrefix(name, *prefixed, m_diagnostics);
      return prefixed;
    }
  }
  reportName(Code::depending, name, outcome);
  return nullptr;
}

void Checker::checkDepending(DataItem& item, NameIndex& index) {
  QualifiedName const& name = item.occurs->depending;
  if (name.name.empty()) return;  // reported by the parser
  DataItem const* object = findCounter(item, index);
  if (object == nullptr) return;
  item.dependingOn = object;
  bool isReported =
      object->isIncomplete || (object->picture != nullptr && !object->picture->isValid());
  if (isReported) return;
  auto report = [&](char const* text) {
    m_diagnostics.report(Code::depending, name.place, quoted(name.name) + text);
  };
  if (!isInteger(*object)) {
    report(" is not an integer item");
  } else if (isInside(object, &item)) {
    report(" is in the table that depends on it");
  } else if (isInTable(object) && !isInside(&item, tableAround(object))) {
    report(" is in a table that does not contain the table that depends on it");
  }
}

// A key is the table itself or an item in it.
void Checker::checkKeys(DataItem const& item, NameIndex& index) {
  if (item.occurs->keys.empty()) return;
  for (QualifiedName const* key : index.findOutside(item.occurs->keys, item)) {
    if (key->name.empty()) continue;
    m_diagnostics.report(Code::occurs, key->place,
                         "key " + quoted(key->name) + " is not in the table");
  }
}

// A constant may have used the length of a group before the last item of the group.
void Checker::checkLengths() {
  for (TakenLength const& each : m_data.lengths) {
    if (each.item->size * each.item->occurrences() == each.size) continue;
    m_diagnostics.report(Code::constant, each.place,
                         "length of " + quoted(each.item->name) + " is used before its last item");
  }
}

void Checker::checkFiles() {
  // A program that copies a copybook may define the name.
  if (!m_data.isProgram) return;
  NameIndex index(m_data);
  for (FileDescription const& file : m_data.files) {
    if (file.depending.name.empty()) continue;
    index.extend(m_data.items.size());
    NameIndex::Outcome outcome = index.resolveAnywhere(file.depending).outcome;
    if (outcome != NameIndex::Outcome::found) reportName(Code::depending, file.depending, outcome);
  }
}

DataItem* Checker::findRenamed(QualifiedName const& name, DataItem const& item, NameIndex& index) {
  auto [outcome, renamed] = index.resolveInRecord(name, item);
  if (outcome != NameIndex::Outcome::found) {
    reportName(Code::renames, name, outcome);
    return nullptr;
  }
  bool isRenamable =
      renamed->parent != nullptr && renamed->level != kRenamesLevel && !isInTable(renamed);
  if (isRenamable) return renamed;
  m_diagnostics.report(Code::renames, name.place, quoted(name.name) + " cannot be renamed");
  return nullptr;
}

void Checker::checkRenames(DataItem& item, NameIndex& index) {
  bool hasEnd = item.through != nullptr && !item.through->name.empty();
  if (item.related == nullptr || item.related->name.empty()) return;  // reported by the parser
  DataItem* first = findRenamed(*item.related, item, index);
  if (first == nullptr) return;
  DataItem* last = hasEnd ? findRenamed(*item.through, item, index) : first;
  if (last == nullptr) return;
  if (hasEnd && isInside(last, first)) {
    m_diagnostics.report(
        Code::renames, item.through->place,
        "RENAMES ends with " + quoted(item.through->name) + ", which is in its first item");
    return;
  }
  item.offset = first->offset;
  std::uint64_t end = last->offset + last->size;
  if (end <= item.offset || last->offset < item.offset) {
    m_diagnostics.report(Code::renames, hasEnd ? item.through->place : item.place,
                         "RENAMES ends before its first item");
    return;
  }
  item.size = end - item.offset;
  bool isOneItem = !hasEnd && !last->isGroup();
  item.effectiveUsage = isOneItem ? last->effectiveUsage : Usage::none;
  if (isOneItem) item.picture = last->picture;
}

}  // namespace fdmorph::compiler
