// The records of a source as tables of text.
#pragma once

#include <string>

#include "show/shown_source.h"

namespace fdmorph::show {

/// For each record its name, length, dialect and encoding, and a line for each
/// item: level, name, indented by its depth, picture, usage, offset from the
/// beginning of the record, length of one occurrence, both in bytes, number of
/// occurrences and XML path. The values of a condition follow its item. Texts of
/// the source are made printable.
[[nodiscard]] std::string printTables(ShownSource const& source);

}  // namespace fdmorph::show
