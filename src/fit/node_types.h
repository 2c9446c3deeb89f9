// The types of a schema beside the items of a record.
#pragma once

#include <string>
#include <vector>

#include "record/record_tree.h"
#include "xml/schema_model.h"

namespace fdmorph::fit {

/// For each node the type of its element, attribute or text in words: "Amount: decimal,
/// 18 digits, 5 of them decimals". Empty for a node that is in no document, or that the
/// schema does not have. The walk is that of checkFit.
[[nodiscard]] std::vector<std::string> typesOfNodes(record::RecordTree const& tree,
                                                    SchemaModel& model);

}  // namespace fdmorph::fit
