// Where records end: those with views or tables of varying size may end early.
#pragma once

#include "layout/record_set.h"

namespace fdmorph::layout {

/// Which occurrences of tables with DEPENDING ON count.
enum class Extent : std::uint8_t {
  present,  ///< those that the counters say: what a record must have
  largest,  ///< all: what a record of the largest form is written with
};

/// The end of a record in its largest form, in bytes: that of the last item that is in
/// it, given the views that the rules choose. An area for which no rule holds, and a
/// table whose counter cannot be used, have nothing.
[[nodiscard]] std::uint64_t endOf(RecordSet const& set, std::uint32_t record, RecordBytes bytes,
                                  Extent extent);

}  // namespace fdmorph::layout
