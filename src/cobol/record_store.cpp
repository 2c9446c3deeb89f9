#include "cobol/record_store.h"

namespace fdmorph {

CDMCOBOLRecordItem* RecordStore::create() {
  if (m_live == kMaxItems) throw RecordTooLarge();
  ++m_live;
  if (m_released.empty()) return m_items.create();
  CDMCOBOLRecordItem* item = m_released.back();
  m_released.pop_back();
  return item;
}

void RecordStore::release(CDMCOBOLRecordItem* item) {
  // The list of released items doubles as the list of those whose children
  // are still to be released.
  std::size_t next = m_released.size();
  auto take = [this](CDMCOBOLRecordItem* taken) {
    if (taken != nullptr) m_released.push_back(taken);
  };
  take(item);
  for (; next < m_released.size(); ++next) {
    CDMCOBOLRecordItem* released = m_released[next];
    --m_live;
    for (CDMCOBOLRecordItem* child : released->children) {
      if (child == nullptr) continue;
      --child->placements;
      if (child->placements == 0) take(child);
    }
    *released = CDMCOBOLRecordItem();
  }
}

void RecordStore::clear() {
  m_items.clear();
  m_released.clear();
  m_live = 0;
  m_texts.clear();
}

}  // namespace fdmorph
