// The elements in an element. For this folder only.
#pragma once

#include <unordered_set>
#include <utility>
#include <vector>

#include "fit/walk_context.h"

namespace fdmorph::fit {

/// An element of the record and the one of the schema that it stands for.
using MatchedPart = std::pair<RecordPart const*, SchemaElement const*>;

/// Checks which elements there are and how often. `open` has the types of the element
/// itself and of those around it. The result is in the order of the record.
[[nodiscard]] std::vector<MatchedPart> checkContent(
    WalkContext& context, Subject const& subject,
    std::unordered_set<SchemaType const*> const& open);

}  // namespace fdmorph::fit
