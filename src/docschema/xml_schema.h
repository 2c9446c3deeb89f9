// XML Schema 1.0 of the documents of records.
#pragma once

#include <string>
#include <vector>

#include "docschema/schema_rules.h"
#include "record/record_tree.h"

namespace fdmorph::docschema {

struct SchemaFile {
  std::string name;  ///< as other files import it
  std::string text;
};

/// Writes a schema for the documents of `records`: a global element for each record
/// and one for the wrapper. The first file is the main one, which imports all others.
/// There is one for each namespace of the documents: a schema file has the elements
/// of one namespace and of none.
///
/// The layout of the records must have no errors, see record/part_rules.h, and the
/// names of the records differ.
[[nodiscard]] std::vector<SchemaFile> writeXmlSchema(std::vector<record::RecordTree> const& records,
                                                     SchemaRules const& rules);

}  // namespace fdmorph::docschema
