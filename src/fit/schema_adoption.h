// What a record learns from a schema about the documents that it is converted to.
#pragma once

#include "record/record_tree.h"
#include "xml/schema_model.h"

namespace fdmorph::fit {

/// Gives the elements and attributes of a record the namespaces that they have in the
/// schema, and notes which of them may be missing. Goes as far as the record and the
/// schema have the same names, from the global element that the record names. A part that
/// the schema does not have stays as it is.
void adoptSchema(record::RecordTree& tree, SchemaModel& model);

}  // namespace fdmorph::fit
