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

// The transaction monitor's translator puts the block with this item into the
// linkage section: the length of the area that a program is called with.
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
                           "there is another record of the name " + quoted(record->name));
    }
    layOut(*record, m_diagnostics);
  }
}

// Levels rise with each step down, so that the depth is bounded by theirs.
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

void Checker::checkDepending(DataItem& item, NameIndex& index) {
  QualifiedName const& name = item.occurs->depending;
  if (name.name.empty()) return;  // reported by the parser
  DataItem* object = nullptr;
  NameIndex::Outcome outcome = index.resolve(name, item, object);
  if (outcome != NameIndex::Outcome::found) {
    if (!isSystemItem(name)) reportName(Code::depending, name, outcome);
    return;
  }
  auto report = [&](char const* text) {
    m_diagnostics.report(Code::depending, name.place, quoted(name.name) + text);
  };
  bool isFaulty =
      object->isIncomplete || (object->picture != nullptr && !object->picture->isValid());
  if (isFaulty) {
    // reported there
  } else if (!isInteger(*object)) {
    report(" is no integer that a table can depend on");
  } else if (isInside(object, &item)) {
    report(" stands in the table that depends on it");
  } else if (isInTable(object) && !isInside(&item, tableAround(object))) {
    report(" stands in a table that the depending one isn't part of");
  }
  item.dependingOn = object;
}

// A key is the table itself or stands in it.
void Checker::checkKeys(DataItem const& item, NameIndex& index) {
  if (item.occurs->keys.empty()) return;
  for (QualifiedName const* key : index.findOutside(item.occurs->keys, item)) {
    if (key->name.empty()) continue;
    m_diagnostics.report(Code::occurs, key->place,
                         "the key " + quoted(key->name) + " doesn't stand in the table");
  }
}

// A constant may have taken the length of a group that wasn't complete.
void Checker::checkLengths() {
  for (TakenLength const& each : m_data.lengths) {
    if (each.item->size * each.item->occurrences() == each.size) continue;
    m_diagnostics.report(
        Code::constant, each.place,
        "the length of " + quoted(each.item->name) + " is taken before its last item");
  }
}

void Checker::checkFiles() {
  if (!m_data.isProgram) return;  // the name may stand in what copies the file
  NameIndex index(m_data);
  for (FileDescription const& file : m_data.files) {
    if (file.depending.name.empty()) continue;
    index.extend(m_data.items.size());
    DataItem* object = nullptr;
    NameIndex::Outcome outcome = index.resolveAnywhere(file.depending, object);
    if (outcome != NameIndex::Outcome::found) reportName(Code::depending, file.depending, outcome);
  }
}

void Checker::checkRenames(DataItem& item, NameIndex& index) {
  DataItem* ends[2] = {nullptr, nullptr};
  QualifiedName const* names[2] = {item.related.get(), item.through.get()};
  for (int i = 0; i < 2; ++i) {
    if (names[i] == nullptr || names[i]->name.empty()) continue;
    NameIndex::Outcome outcome = index.resolveInRecord(*names[i], item, ends[i]);
    if (outcome != NameIndex::Outcome::found) {
      reportName(Code::renames, *names[i], outcome);
      return;
    }
    bool isRenamable = ends[i]->parent != nullptr && ends[i]->level != kRenamesLevel;
    if (!isRenamable || isInTable(ends[i])) {
      m_diagnostics.report(Code::renames, names[i]->place,
                           quoted(names[i]->name) + " can't be renamed");
      return;
    }
  }
  if (ends[0] == nullptr) return;
  if (ends[1] != nullptr && isInside(ends[1], ends[0])) {
    m_diagnostics.report(Code::renames, names[1]->place,
                         quoted(names[1]->name) + " stands in the item that RENAMES begins with");
    return;
  }
  DataItem const& last = ends[1] == nullptr ? *ends[0] : *ends[1];
  item.offset = ends[0]->offset;
  std::uint64_t end = last.offset + last.size;
  if (end <= item.offset || last.offset < item.offset) {
    m_diagnostics.report(Code::renames, item.through ? item.through->place : item.place,
                         "RENAMES runs from an item to one before it");
    return;
  }
  item.size = end - item.offset;
  bool isOneItem = ends[1] == nullptr && !last.isGroup();
  item.effectiveUsage = isOneItem ? last.effectiveUsage : Usage::none;
  if (isOneItem) item.picture = last.picture;
}

}  // namespace fdmorph::compiler
