// The schema that records are validated against.
#pragma once

#include <memory>
#include <vector>

#include "fdrec/data_options.h"
#include "fdrec/schema_file.h"
#include "fit/schema_adoption.h"
#include "xml/document_validator.h"

namespace fdmorph::fdrec {

/// The schema of --schema, with a validator for each thread.
class DataSchema {
 public:
  /// Loads the schema that the options name. Reports are printed to the standard error
  /// stream.
  explicit DataSchema(DataOptions const& data);

  /// kClean if the schema can be used; else the exit status of the command.
  [[nodiscard]] int status() const { return m_status; }

  [[nodiscard]] SchemaModel& model() { return m_file->model(); }

  /// Takes namespaces and optional parts of a record from the schema.
  void adopt(record::RecordTree& tree) { fit::adoptSchema(tree, model()); }

  [[nodiscard]] DocumentValidator& validator(std::size_t thread) { return *m_validators[thread]; }

 private:
  std::unique_ptr<SchemaFile> m_file;
  std::vector<std::unique_ptr<DocumentValidator>> m_validators;
  int m_status;
};

}  // namespace fdmorph::fdrec
