// Which parts of an element a schema lets be missing.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "fit/part_matching.h"
#include "record/record_tree.h"

namespace fdmorph::fit {

/// The demands on the elements of a record in an element of a type, by node. `match` is
/// between `elements` and `content`, which is that of the type. Parts that the content
/// does not have get none.
///
/// What may be missing alone is what has minOccurs 0, or is one of several branches of a
/// choice. The parts of a group that has minOccurs 0, or is such a branch, may be missing
/// together.
[[nodiscard]] std::vector<std::pair<std::uint32_t, record::PartDemand>> demandsOf(
    SchemaType const& type, SchemaModel& model, Content const& content,
    std::vector<RecordPart> const& elements, PartMatch const& match,
    record::RecordTree const& tree);

}  // namespace fdmorph::fit
