// Which elements of a record are which parts of a content model.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "fit/content.h"
#include "fit/part_counts.h"

namespace fdmorph::fit {

struct PartMatch {
  std::vector<std::optional<std::size_t>> partOf;  ///< in the content, by element of the record
  std::vector<std::optional<std::size_t>> itemOf;  ///< the reverse
};

/// Matches by name and namespace, else by name alone: records do not always know the
/// namespaces of local elements.
[[nodiscard]] PartMatch matchParts(std::vector<RecordPart> const& elements, Content const& content);

}  // namespace fdmorph::fit
