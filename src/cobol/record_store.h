// The owner of a record's items and of the texts made for it.
#pragma once

#include <cstddef>
#include <vector>

#include "cobol/DMCOBOLRecordItem.h"
#include "text/arena.h"
#include "text/text_pool.h"

namespace fdmorph {

/// Thrown by RecordStore::create for an item too many; the schema walker
/// catches it at the head element.
struct RecordTooLarge {};

/// Owns the items of one record at a time. An item stays readable until it is
/// released or the store is cleared, whatever list it stands in or not.
class RecordStore {
 public:
  static constexpr std::size_t kMaxItems = 5'000'000;

  /// A fresh item with the default values.
  CDMCOBOLRecordItem* create();

  /// Ends `item` and everything below it. Nothing may name them afterwards.
  /// An item that stands in two places is ended once; null does nothing.
  void release(CDMCOBOLRecordItem* item);

  /// Ends all items and texts.
  void clear();

  TextPool& texts() { return m_texts; }

 private:
  Arena<CDMCOBOLRecordItem> m_items;
  std::vector<CDMCOBOLRecordItem*> m_released;
  std::size_t m_live = 0;
  TextPool m_texts;
};

}  // namespace fdmorph
