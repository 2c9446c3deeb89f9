// The rules for the storage of items.
#pragma once

#include "record/record_tree.h"

namespace fdmorph::record {

/// Reports items with a role whose bytes have no defined value: usages that are
/// stored differently everywhere, and binary numbers of more than 18 digits. Reports
/// all items whose size is not defined: binary numbers with a picture of more than 8 X.
void checkStorage(RecordTree const& tree, compiler::Diagnostics& diagnostics);

}  // namespace fdmorph::record
