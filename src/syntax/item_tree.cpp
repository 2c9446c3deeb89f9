// How level numbers make a tree of the entries.
#include "syntax/parser.h"

namespace fdmorph::compiler {
namespace {

// A record without a name would leave its items without an element around them.
constexpr std::string_view kImpliedName = "COPYBOOK";

// Whether an item can stand for itself: it is one item, no table.
bool isRecordByItself(DataItem const& item) {
  return item.next == nullptr && !item.occurs && item.level <= kMaxGroupLevel;
}

}  // namespace

DataItem* Parser::newItem(std::uint8_t level, Place place) {
  DataItem& item = m_data.items.emplace_back();
  item.level = level;
  item.place = place;
  return &item;
}

RecordList& Parser::records() {
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

void Parser::attach(DataItem* item) {
  m_lastItem = item;
  bool isRecord = item->level == 1 || item->level == kSingleLevel;
  if (isRecord) {
    m_open.clear();
    attachRecord(item);
    return;
  }
  if (m_open.empty()) {
    if (m_data.isProgram) {
      error(Code::levelOrder, item->place, "a record begins with level 01 or 77");
    }
    m_open.push_back(openRecord(item->place, 0));
  }
  attachToGroup(item);
}

void Parser::attachRecord(DataItem* item) {
  if (m_section == Section::file && m_file == nullptr) {
    error(Code::levelOrder, item->place, "the record belongs to no file description");
  }
  RecordList& list = records();
  if (list.last == nullptr) {
    list.first = item;
  } else {
    list.last->next = item;
  }
  list.last = item;
  m_open.push_back(item);
}

// A bare copybook may begin below level 01. A record holds its items then, so
// that they stay together.
DataItem* Parser::openRecord(Place place, std::uint8_t level) {
  DataItem* record = newItem(level, place);
  record->isImplied = true;
  record->name = kImpliedName;
  attachRecord(record);
  m_open.pop_back();
  return record;
}

// A single item of a bare copybook needs no record around it.
void Parser::dissolveImpliedRecords(RecordList& list) {
  DataItem* before = nullptr;
  for (DataItem* record = list.first; record != nullptr; record = record->next) {
    DataItem* only = record->isImplied ? record->firstChild : nullptr;
    if (only != nullptr && isRecordByItself(*only)) {
      only->parent = nullptr;
      only->next = record->next;
      (before == nullptr ? list.first : before->next) = only;
      if (list.last == record) list.last = only;
      record = only;
    }
    before = record;
  }
}

void Parser::attachToGroup(DataItem* item) {
  DataItem* closed = nullptr;
  while (m_open.size() > 1 && m_open.back()->level >= item->level) {
    closed = m_open.back();
    m_open.pop_back();
  }
  DataItem* group = m_open.back();
  bool isOutOfStep = closed != nullptr && closed->level != item->level &&
                     item->level <= kMaxGroupLevel &&
                     !(group->isImplied && closed->level > item->level);
  if (isOutOfStep && !(group == m_strayGroup && item->level == m_strayLevel)) {
    m_strayGroup = group;
    m_strayLevel = item->level;
    error(Code::levelOrder, item->place,
          "level " + std::to_string(item->level) + " follows level " +
              std::to_string(closed->level) + " in the same group");
  }
  // Items below it find their group, and those of its level aren't reported.
  if (isOutOfStep) item->level = closed->level;
  if (group->level == kSingleLevel && item->level <= kMaxGroupLevel) {
    error(Code::levelOrder, item->place, "an item of level 77 has no items below it");
  }
  item->parent = group;
  if (group->lastChild == nullptr) {
    group->firstChild = item;
  } else {
    group->lastChild->next = item;
  }
  group->lastChild = item;
  if (item->level <= kMaxGroupLevel) m_open.push_back(item);
}

}  // namespace fdmorph::compiler
