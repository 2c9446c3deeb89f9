// The listing: the items of a source and their storage as a table.
#pragma once

#include <string>

#include "semantics/data_item.h"
#include "source/source_files.h"

namespace fdmorph::compiler {

/// A line for each data description: the line in the source, with the name of the
/// file if that is a copy member, the level, the name, indented by its depth, the
/// offset from the beginning of the record and the length of one occurrence, both
/// in bytes, the picture, the usage and the number of occurrences. Conditions and
/// constants are left out. The data must be without errors.
[[nodiscard]] std::string listItems(DataDivision const& data, Sources const& sources);

}  // namespace fdmorph::compiler
