// The parts of an element of a record, with views of one area side by side.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "record/record_tree.h"

namespace fdmorph::fit {

/// The slots of one name.
struct RecordPart {
  std::string_view name;
  std::string_view namespaceUri;
  std::vector<std::uint32_t> nodes;  ///< in the order of the record
  std::uint64_t most = 0;            ///< occurrences that fit into one view of each area
};

/// The elements in each view of an area that is redefined, as indexes of
/// RecordParts::elements. A document can have those of one view only.
using SharedArea = std::vector<std::vector<std::size_t>>;

struct RecordParts {
  std::vector<RecordPart> elements;       ///< in the order of their first slots
  std::vector<std::uint32_t> attributes;  ///< nodes
  std::vector<std::uint32_t> values;      ///< nodes of the text; several are views
  std::vector<SharedArea> areas;          ///< those with elements in two views or more
};

/// The parts of the element or attribute `node`.
[[nodiscard]] RecordParts partsOf(record::RecordTree const& tree, std::uint32_t node);

}  // namespace fdmorph::fit
