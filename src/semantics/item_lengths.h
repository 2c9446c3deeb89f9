// Lengths that are asked for while the source is still being parsed, by
// constants: `78 N VALUE LENGTH OF A`.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <unordered_set>

#include "semantics/data_item.h"
#include "semantics/name_index.h"
#include "source/diagnostics.h"

namespace fdmorph::compiler {

class ItemLengths {
 public:
  enum class Outcome {
    found,
    unknown,
    ambiguous,
    tooMany,  ///< more work than any source is worth
  };

  ItemLengths(DataDivision& data, Diagnostics const& diagnostics)
      : m_data(data), m_index(data), m_discarded(diagnostics.sources()) {}

  /// Finds an item among all but the newest, which is still being parsed, and
  /// lays it out as far as it goes. `last` is the item parsed last. The size of
  /// the item is good if the outcome is `found`.
  Outcome find(QualifiedName const& name, DataItem const* last, DataItem*& item);

 private:
  Outcome measure(DataItem& item, DataItem const* last);
  void measureRecord(DataItem& record, DataItem const* last);
  bool prepare(DataItem& item);
  void prepareGroups(DataItem& item);

  DataDivision& m_data;
  NameIndex m_index;
  Diagnostics m_discarded;                         // the checker reports it all again
  std::unordered_set<DataItem const*> m_complete;  // that were measured then
  // The last item when a record was measured.
  std::unordered_map<DataItem const*, DataItem const*> m_records;
  std::uint64_t m_steps = 0;
};

}  // namespace fdmorph::compiler
