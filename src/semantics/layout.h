// The storage layout.
//
// Items lie one behind the other, a table's occurrences too. An item that
// redefines lies where the redefined one does and takes no room of its own.
// SYNCHRONIZED moves a binary item of 2, 4 or 8 bytes, an index or a pointer
// up to a multiple of its size from the beginning of the record; the room in
// between is the group's. A table is filled up to the widest such item so that
// each of its occurrences lies alike, and that room is put ahead of its items.
// Items count for it from the beginning of the last group in the table on that
// has ended by its end, which is how other compilers came to lay out tables
// within tables; files have kept that.
#pragma once

#include "semantics/data_item.h"
#include "source/diagnostics.h"

namespace fdmorph::compiler {

/// Largest size of an item with all its occurrences.
inline constexpr std::uint64_t kMaxItemSize = 0x7FFFFFFF;

/// Bytes of an elementary item by its picture, usage and sign; 0 where these
/// don't fit together.
std::uint64_t sizeOf(DataItem const& item);

/// Sets size and offset of a record and everything in it. Reports what is too
/// large, and redefinitions that are larger than what they redefine.
void layOut(DataItem& record, Diagnostics& diagnostics);

}  // namespace fdmorph::compiler
