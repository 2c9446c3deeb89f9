// The rules for the storage of items that are in documents.
#pragma once

#include "record/record_tree.h"

namespace fdmorph::record {

/// Reports items with a role whose bytes have no defined value: usages that are
/// stored differently everywhere, and binary numbers of more than 18 digits or 8
/// bytes.
void checkStorage(RecordTree const& tree, compiler::Diagnostics& diagnostics);

}  // namespace fdmorph::record
