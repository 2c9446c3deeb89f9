// The condition names of one restriction's enumeration facets.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>

#include "cobol/record_store.h"

namespace fdmorph {

/// Adds a condition name (level 88) per distinct value to an item.
///
/// The numbers in the names come from the search for the value among the
/// item's children: every child that it passes counts one. A value that isn't
/// found takes the number and sets it back to 0; one that is found leaves the
/// number as it stands, so that the next new name is raised by it.
class EnumerationList {
 public:
  /// `holder` is the element that holds the facets.
  EnumerationList(CDMCOBOLRecordItem* item, CDMXMLElement const* holder, RecordStore& store)
      : m_item(item), m_holder(holder), m_store(store) {}

  /// The first value of a restriction takes the condition names of its base
  /// out of the item.
  void add(std::string_view value);

 private:
  void begin();

  CDMCOBOLRecordItem* m_item;
  CDMXMLElement const* m_holder;
  RecordStore& m_store;
  bool m_hasBegun = false;
  std::size_t m_number = 0;
  std::unordered_map<std::string_view, std::size_t> m_places;  // first child of each value
};

}  // namespace fdmorph
