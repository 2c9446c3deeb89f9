// What a document says about the counters of tables with DEPENDING ON.
#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "layout/layout.h"

namespace fdmorph::document {

/// One occurrence of a counter.
struct CounterState {
  enum class Source : std::uint8_t {
    none,      ///< the document does not have it
    failed,    ///< it has an error, or a table of it; the numbers of its tables do not count
    document,  ///< the document has it
    table,     ///< it was set from a table
  };

  Source source = Source::none;
  std::int64_t value = 0;
  std::uint64_t line = 0;  ///< of the document's element
  std::uint64_t column = 0;
};

/// The states of all counters of a record. One that is in no table is found by its
/// number; another one by its bytes, too.
class CounterStates {
 public:
  explicit CounterStates(layout::Layout const& layout)
      : m_layout(&layout), m_single(layout.counters().size()), m_several(m_single.size()) {}

  void clear();

  /// The state of a counter at an offset in the largest form of the record.
  CounterState& at(std::uint32_t counter, std::uint64_t offset);

  /// Forgets the counters in a part of the record.
  void forget(std::uint64_t begin, std::uint64_t end);

 private:
  layout::Layout const* m_layout;
  std::vector<CounterState> m_single;
  std::vector<std::unordered_map<std::uint64_t, CounterState>> m_several;
};

}  // namespace fdmorph::document
