// Records whose tables with DEPENDING ON take only what their counters say.
#pragma once

#include <optional>

#include "layout/record_set.h"

namespace fdmorph::layout {

/// A counter that cannot be used.
struct CounterFault {
  std::uint32_t node;     ///< the counter
  std::uint32_t table;    ///< the table that depends on it
  Occurrence occurrence;  ///< of the table
  bool isReadable;        ///< it has a value, which is outside the bounds of the table
  std::int64_t value = 0;
};

/// The value of a counter, or what is wrong with it.
struct CounterValue {
  std::uint64_t count = 0;  ///< occurrences of the table
  bool isMissing = false;   ///< the record ends before it; the count is the lower bound
  std::optional<CounterFault> fault;
};

/// The number of occurrences of a table with DEPENDING ON.
[[nodiscard]] CounterValue countOf(Layout const& layout, values::Values const& values,
                                   RecordBytes record, std::uint32_t table,
                                   Occurrence const& occurrence);

/// What became of a shifted record.
struct SpreadRecord {
  std::uint64_t used = 0;             ///< the length that it has by its counters, in bytes
  std::uint64_t available = 0;        ///< in the largest form: the data from here on is missing
  bool isShort = false;               ///< data is missing
  std::optional<CounterFault> fault;  ///< what follows the table is not spread
};

/// Spreads a shifted record to its largest form. `full` has the bytes of
/// Layout::setAbsent, which stay where data is missing or a table has no occurrence.
[[nodiscard]] SpreadRecord spread(Layout const& layout, values::Values const& values,
                                  unsigned char const* record, std::uint64_t size,
                                  unsigned char* full);

/// The shifted form of a record; the result is its length in bytes. `out` has room for
/// the size of the layout. The counters are right.
[[nodiscard]] std::uint64_t shift(Layout const& layout, values::Values const& values,
                                  unsigned char const* full, unsigned char* out);

/// The offset in the shifted record of what is at `offset` in the largest form, in
/// bytes. Counters after that are not looked at.
[[nodiscard]] std::uint64_t shiftedOffset(Layout const& layout, values::Values const& values,
                                          unsigned char const* full, std::uint64_t offset);

}  // namespace fdmorph::layout
