// Items by their names.
#pragma once

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

  /// The item that `name` means in the record of `from`: one of that record if
  /// there are several. `item` is set only if it is found.
  Outcome resolve(QualifiedName const& name, DataItem const& from, DataItem*& item) const;

  /// The same for names of that record only.
  Outcome resolveInRecord(QualifiedName const& name, DataItem const& from, DataItem*& item) const;

 private:
  Outcome search(QualifiedName const& name, DataItem const* record, DataItem*& item) const;

  std::unordered_map<std::string_view, DataItem*, BlindHash, BlindEqual> m_items;
  std::unordered_map<DataItem const*, std::string_view> m_files;  // of records
};

/// The record that an item stands in.
DataItem const* recordOf(DataItem const& item);

/// Whether an item without a name to be called by.
bool isFillerName(std::string_view name);

}  // namespace fdmorph::compiler
