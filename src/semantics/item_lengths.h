// The lengths of items that constants use while the source is being parsed:
// `78 N VALUE LENGTH OF A`.
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
    tooMany,  ///< the limit on the work for all lengths is exceeded
  };

  /// The result of a search. The item is null unless it was found.
  struct Found {
    Outcome outcome = Outcome::unknown;
    DataItem* item = nullptr;
  };

  ItemLengths(DataDivision& data, Diagnostics const& diagnostics)
      : m_data(data), m_index(data), m_discarded(diagnostics.sources()) {}

  /// Finds an item among all but the newest, which is still being parsed, and
  /// sets its size, as far as its record has been parsed. `last` is the item
  /// parsed last.
  [[nodiscard]] Found find(QualifiedName const& name, DataItem const* last);

 private:
  Outcome measure(DataItem& item, DataItem const* last);
  void measureRecord(DataItem& record, DataItem const* last);
  bool prepare(DataItem& item);
  void prepareGroups(DataItem& item);

  DataDivision& m_data;
  NameIndex m_index;
  Diagnostics m_discarded;                         // the checker reports the same errors later
  std::unordered_set<DataItem const*> m_complete;  // items whose size is final
  // By record, the last item of the source when the record was measured.
  std::unordered_map<DataItem const*, DataItem const*> m_records;
  std::uint64_t m_steps = 0;  // the number of items visited
};

}  // namespace fdmorph::compiler
