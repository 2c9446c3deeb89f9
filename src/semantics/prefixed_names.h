// Names that lack a prefix.
//
// A copybook generated with a prefix for its data names leaves the prefix out
// after REDEFINES and DEPENDING ON: there A means WS-A.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>

#include "semantics/data_item.h"
#include "source/diagnostics.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {

/// The items of a group by the ends of their names that follow a hyphen: WS-A-B
/// is found as A-B and as B.
class NameEnds {
 public:
  void clear() { m_items.clear(); }
  void add(DataItem const& item);

  /// The item added last whose name ends so; null if there is none.
  [[nodiscard]] DataItem const* findLast(std::string_view end) const;

 private:
  std::unordered_map<std::string_view, DataItem const*, CaseInsensitiveHash, CaseInsensitiveEqual>
      m_items;
};

/// The integer items of a record by the ends of their names.
class IntegerEnds {
 public:
  /// The effective usages of all items of the record must be set.
  explicit IntegerEnds(DataItem const& record) { add(record); }

  struct Found {
    DataItem const* item = nullptr;  ///< null if there is none, or if there are several
    bool isAmbiguous = false;
  };

  /// The only integer item before `table` whose name ends so. `table` is in the
  /// record.
  [[nodiscard]] Found findBefore(DataItem const& table, std::string_view end) const;

 private:
  void add(DataItem const& item);

  /// The first two items with one end.
  struct Pair {
    DataItem const* first = nullptr;
    DataItem const* second = nullptr;
  };

  std::unordered_map<std::string_view, Pair, CaseInsensitiveHash, CaseInsensitiveEqual> m_items;
  std::unordered_map<DataItem const*, std::size_t> m_positions;
};

/// Warns that a name without its prefix was taken for that of an item.
void reportPrefix(QualifiedName const& name, DataItem const& item, Diagnostics& diagnostics);

}  // namespace fdmorph::compiler
