// The storage layout.
//
// Items lie one behind the other, a table's occurrences too. An item that
// redefines lies where the redefined one does and takes no room of its own.
// SYNCHRONIZED moves a binary item of 2, 4 or 8 bytes, an index or a pointer
// up to a multiple of its size from the beginning of the record; the room in
// between is the group's. A table with such items right below it is filled up
// so that each of its occurrences lies alike; that room is put ahead of them.
#pragma once

#include "compiler/data_item.h"
#include "compiler/diagnostics.h"

namespace fdmorph::compiler {

/// Largest size of an item with all its occurrences.
inline constexpr std::uint64_t kLargestSize = 0x7FFFFFFF;

/// Bytes of an elementary item by its picture, usage and sign; 0 where these
/// don't fit together.
std::uint64_t sizeOf(DataItem const& item);

/// Sets size and offset of a record and everything in it. Reports what is too
/// large, and redefinitions that are larger than what they redefine.
void layOut(DataItem& record, Diagnostics& diagnostics);

}  // namespace fdmorph::compiler
