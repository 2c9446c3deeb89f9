#include "syntax/item_tree.h"

namespace fdmorph::compiler {
namespace {

// A record without a name would leave its items without an element around them.
constexpr std::string_view kImpliedName = "COPYBOOK";

// Whether an item can be a record: it is one item, and no table.
bool canBeRecord(DataItem const& item) {
  return item.next == nullptr && !item.occurs && item.level <= kMaxGroupLevel;
}

}  // namespace

void ItemTree::openSection(Section section) {
  m_section = section;
  m_file = nullptr;
  m_open.clear();
  m_lastItem = nullptr;
}

void ItemTree::openFile(FileDescription* file) {
  openSection(Section::file);
  m_file = file;
  m_hasFile = true;
}

DataItem& ItemTree::newItem(std::uint8_t level, Place place) {
  DataItem& item = m_data.items.emplace_back();
  item.level = level;
  item.place = place;
  return item;
}

RecordList& ItemTree::records() {
  switch (m_section) {
    case Section::file:
      if (m_file != nullptr) return m_file->records;
      break;
    case Section::localStorage:
      return m_data.localStorage;
    case Section::linkage:
      return m_data.linkage;
    default:
      break;
  }
  return m_data.workingStorage;
}

void ItemTree::attach(DataItem& item) {
  m_lastItem = &item;
  if (item.level == 1 || item.level == kSingleLevel) {
    m_open.clear();
    attachRecord(item);
    item.isXmlRecord = item.xml != nullptr;
    m_open.push_back(&item);
    return;
  }
  if (m_open.empty()) {
    if (m_data.isProgram) {
      m_errors.report(
          Code::levelOrder, item.place,
          "expected level 1 or 77 to begin a record, found level " + std::to_string(item.level));
    }
    openImpliedRecord(item.place);
  }
  attachToGroup(item);
  if (item.xml != nullptr) recordOf(item)->isXmlRecord = true;
}

void ItemTree::attachRenames(DataItem& item) {
  if (m_open.empty()) {
    m_errors.report(Code::levelOrder, item.place, "level 66 does not follow a record");
    return;
  }
  m_open.erase(m_open.begin() + 1, m_open.end());
  attachToGroup(item);
  m_lastItem = &item;
}

void ItemTree::attachCondition(DataItem& condition) {
  if (m_lastItem == nullptr) {
    m_errors.report(Code::levelOrder, condition.place,
                    "condition " + quoted(condition.name) + " does not follow a data item");
    return;
  }
  condition.parent = m_lastItem;
  if (m_lastItem->lastCondition == nullptr) {
    m_lastItem->firstCondition = &condition;
  } else {
    m_lastItem->lastCondition->next = &condition;
  }
  m_lastItem->lastCondition = &condition;
}

void ItemTree::attachRecord(DataItem& item) {
  if (m_section == Section::file && m_file == nullptr) {
    m_errors.report(Code::levelOrder, item.place, "record does not follow a file description");
  }
  RecordList& list = records();
  if (list.last == nullptr) {
    list.first = &item;
  } else {
    list.last->next = &item;
  }
  list.last = &item;
}

// A copybook by itself may begin below level 01. A record around its items
// keeps them together.
void ItemTree::openImpliedRecord(Place place) {
  DataItem& record = newItem(0, place);
  record.isImplied = true;
  record.name = kImpliedName;
  attachRecord(record);
  m_open.push_back(&record);
}

// A single item of a copybook needs no record around it.
void ItemTree::finish() {
  RecordList& list = m_data.workingStorage;
  DataItem* before = nullptr;
  for (DataItem* record = list.first; record != nullptr; record = record->next) {
    DataItem* only = record->isImplied ? record->firstChild : nullptr;
    if (only != nullptr && canBeRecord(*only)) {
      only->parent = nullptr;
      only->isXmlRecord = record->isXmlRecord;
      only->next = record->next;
      (before == nullptr ? list.first : before->next) = only;
      if (list.last == record) list.last = only;
      record = only;
    }
    before = record;
  }
}

void ItemTree::attachToGroup(DataItem& item) {
  DataItem* closed = nullptr;
  while (m_open.size() > 1 && m_open.back()->level >= item.level) {
    closed = m_open.back();
    m_open.pop_back();
  }
  DataItem* group = m_open.back();
  bool isMismatch = closed != nullptr && closed->level != item.level &&
                    item.level <= kMaxGroupLevel &&
                    !(group->isImplied && closed->level > item.level);
  if (isMismatch && !(group == m_mismatchedGroup && item.level == m_mismatchedLevel)) {
    m_mismatchedGroup = group;
    m_mismatchedLevel = item.level;
    m_errors.report(Code::levelOrder, item.place,
                    "level " + std::to_string(item.level) + " does not match any open level");
  }
  // Items below it find their group, and those of its level are not reported.
  if (isMismatch) item.level = closed->level;
  if (group->level == kSingleLevel && item.level <= kMaxGroupLevel) {
    m_errors.report(Code::levelOrder, item.place,
                    "level " + std::to_string(item.level) + " is below an item of level 77");
  }
  item.parent = group;
  if (group->lastChild == nullptr) {
    group->firstChild = &item;
  } else {
    group->lastChild->next = &item;
  }
  group->lastChild = &item;
  if (item.level <= kMaxGroupLevel) m_open.push_back(&item);
}

}  // namespace fdmorph::compiler
