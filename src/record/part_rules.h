// The rules for the parts of an element: their names, and which of them may repeat.
#pragma once

#include "record/record_tree.h"

namespace fdmorph::record {

/// Reports attributes and texts of one element that clash, attributes and texts that
/// repeat or stand outside of elements, and tables of varying size with another
/// part of the same name after them. Parts of different views of one area, that is
/// of items that redefine each other, never clash.
void checkParts(RecordTree const& tree, compiler::Diagnostics& diagnostics);

}  // namespace fdmorph::record
