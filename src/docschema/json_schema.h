// JSON Schema (2020-12) of records as JSON.
#pragma once

#include <string>
#include <vector>

#include "docschema/schema_rules.h"
#include "record/record_tree.h"

namespace fdmorph::docschema {

/// Writes a schema for one line of JSON: a record. Of several records each is a member
/// of an object, under its name.
///
/// The layout of the records must have no errors, names that differ only by their
/// namespaces among them, and the names of the records differ.
[[nodiscard]] std::string writeJsonSchema(std::vector<record::RecordTree> const& records,
                                          SchemaRules const& rules);

}  // namespace fdmorph::docschema
