// Records whose tables with DEPENDING ON take only what their counters say.
#pragma once

#include <vector>

#include "layout/record_set.h"

namespace fdmorph::layout {

/// A counter that cannot be used.
struct CounterFault {
  std::uint32_t node;        ///< the counter
  std::uint32_t table;       ///< the first table that depends on it
  std::uint64_t offset;      ///< of the counter in the shifted record, in bytes
  Occurrence occurrence;     ///< of the counter
  values::ValueError error;  ///< of its value; none: outside the bounds of its table
};

/// A record in its largest form.
struct SpreadRecord {
  std::uint64_t used = 0;            ///< bytes of the shifted record that it has
  std::uint64_t available = 0;       ///< the offset in the largest form where data is missing
  bool isShort = false;              ///< data is missing
  std::vector<CounterFault> faults;  ///< at most one; what follows it is not spread
};

/// Spreads a shifted record to its largest form. `full` has the bytes of
/// Layout::absentBytes, which stay where data is missing or a table has no occurrence.
[[nodiscard]] SpreadRecord spread(Layout const& layout, values::Values const& values,
                                  unsigned char const* record, std::uint64_t size,
                                  unsigned char* full);

/// The shifted form of a record; the result is its length in bytes. `out` has room for
/// the size of the layout. The counters are right.
[[nodiscard]] std::uint64_t shift(Layout const& layout, values::Values const& values,
                                  unsigned char const* full, unsigned char* out);

/// The offset of an item in the shifted record, in bytes.
[[nodiscard]] std::uint64_t shiftedOffset(Layout const& layout, values::Values const& values,
                                          unsigned char const* full, std::uint32_t node,
                                          Occurrence const& occurrence);

}  // namespace fdmorph::layout
