// Items by their names.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_map>

#include "compiler/data_item.h"
#include "compiler/letters.h"

namespace fdmorph::compiler {

class NameIndex {
 public:
  enum class Outcome { found, unknown, ambiguous };

  /// Indexes the items that stand in a record, conditions left out.
  explicit NameIndex(DataDivision& data);

  /// The item that `name` means in the record of `from`: one of that record,
  /// or else one of any. `item` is set only if it is found.
  Outcome resolve(QualifiedName const& name, DataItem const& from, DataItem*& item);

  /// The same for names of that record only.
  Outcome resolveInRecord(QualifiedName const& name, DataItem const& from, DataItem*& item);

 private:
  using Chain = DataItem* DataItem::*;

  struct Key {
    DataItem const* record;
    std::string_view name;

    bool operator==(Key const& other) const {
      return record == other.record && equalsBlindly(name, other.name);
    }
  };
  struct KeyHash {
    std::size_t operator()(Key const& key) const {
      return BlindHash()(key.name) ^ std::hash<DataItem const*>()(key.record);
    }
  };

  Outcome search(QualifiedName const& name, DataItem* first, Chain chain, DataItem*& item);
  bool fits(QualifiedName const& name, DataItem const& item) const;

  std::unordered_map<std::string_view, DataItem*, BlindHash, BlindEqual> m_items;
  std::unordered_map<Key, DataItem*, KeyHash> m_inRecords;
  std::unordered_map<DataItem const*, std::string_view> m_files;  // of records
  std::uint64_t m_steps = 0;
};

/// The record that an item stands in.
DataItem const* recordOf(DataItem const& item);

/// Whether a name is none that an item could be called by.
bool isFillerName(std::string_view name);

}  // namespace fdmorph::compiler
