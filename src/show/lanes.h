// Where the boxes of a group are drawn when several items have the same bytes.
#pragma once

#include <cstdint>
#include <vector>

#include "record/record_tree.h"

namespace fdmorph::show {

/// For each node a lane of the group around it. Items with storage of their own are
/// in lane 0. A redefinition, or a RENAMES item, is in the first lane that is free
/// at its bytes, from 1 on, or from the lane after the one of the view before it if
/// both overlap. So the views of one item are in the order of the source, and no two
/// items of a lane overlap.
[[nodiscard]] std::vector<std::uint32_t> lanesOf(record::RecordTree const& tree);

}  // namespace fdmorph::show
