// The storage layout.
//
// Items follow one another without gaps, and so do the occurrences of a table. An
// item that redefines another begins where that begins and adds nothing to the
// size of the group, unless it is larger.
//
// SYNCHRONIZED moves a binary item of 2, 4 or 8 bytes, an index or a pointer to a
// multiple of its size from the beginning of the record. The bytes in between
// belong to the group. A table that contains such items is filled up to a multiple
// of the widest one, so that all occurrences are aligned alike. GnuCOBOL defines
// the details, since its data files depend on them:
// - The filling precedes the last item directly below the table.
// - The widest item is searched only from the beginning of the last group in the
//   table on, whatever its level is.
#pragma once

#include "semantics/data_item.h"
#include "source/diagnostics.h"

namespace fdmorph::compiler {

/// The maximum size of an item with all its occurrences, in bytes.
inline constexpr std::uint64_t kMaxItemSize = 0x7FFFFFFF;

/// The size in bytes of an elementary item by its picture, usage and sign; 0 if
/// these do not go together.
std::uint64_t sizeOf(DataItem const& item, StorageSizes sizes);

/// Sets the sizes and offsets of a record and all items in it. Reports items that
/// are too large and redefinitions that are larger than the redefined item.
void layOut(DataItem& record, StorageSizes sizes, Diagnostics& diagnostics);

}  // namespace fdmorph::compiler
