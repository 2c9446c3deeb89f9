// Lengths that are asked for while the source is still being parsed, by
// constants: `78 N VALUE LENGTH OF A`.
#pragma once

#include <cstdint>
#include <unordered_map>

#include "compiler/data_item.h"
#include "compiler/diagnostics.h"
#include "compiler/name_index.h"

namespace fdmorph::compiler {

class ItemLengths {
 public:
  ItemLengths(DataDivision& data, Diagnostics const& diagnostics)
      : m_data(data), m_index(data), m_unheard(diagnostics.sources()) {}

  /// Finds an item among all but the newest, which is still being parsed, and
  /// lays out its record as far as it goes. `newest` is the item parsed last.
  /// The size of the item is good if the outcome is `found`.
  NameIndex::Outcome find(QualifiedName const& name, DataItem const* newest, DataItem*& item);

 private:
  void layOutSoFar(DataItem& record);

  DataDivision& m_data;
  NameIndex m_index;
  Diagnostics m_unheard;  // the checker reports it all again
  // The newest item when a record was laid out.
  std::unordered_map<DataItem const*, DataItem const*> m_laidOut;
  std::uint64_t m_steps = 0;
};

}  // namespace fdmorph::compiler
