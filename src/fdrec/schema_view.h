// A schema beside the records of a copybook, for display.
#pragma once

#include <string>
#include <vector>

#include "fdrec/copybook_file.h"
#include "show/shown_source.h"
#include "xml/schema_model.h"

namespace fdmorph::fdrec {

struct SchemaViews {
  std::vector<show::SchemaView> records;  ///< in the order of the records
  bool hasErrors = false;                 ///< among the findings
  bool hasWarnings = false;
};

/// The types of the items and what a check of the fit finds. `schemaFile` is the name
/// of the schema.
[[nodiscard]] SchemaViews viewSchema(CopybookFile& copybook, SchemaModel& model,
                                     std::string const& schemaFile, CommonOptions const& options);

}  // namespace fdmorph::fdrec
