// The schema that records are validated against.
#pragma once

#include <memory>
#include <vector>

#include "fdrec/record_schema.h"
#include "fdrec/schema_file.h"
#include "fit/schema_adoption.h"
#include "xml/document_validator.h"

namespace fdmorph::fdrec {

/// The schema of --schema, with a validator for each thread.
class DataSchema : public RecordSchema {
 public:
  DataSchema(DataOptions const& data, std::shared_ptr<ReadFiles> const& read);

  /// The OpenSchema of this class.
  [[nodiscard]] static std::unique_ptr<RecordSchema> open(DataOptions const& data,
                                                          std::shared_ptr<ReadFiles> const& read);

  [[nodiscard]] int status() const override { return m_status; }
  void adopt(record::RecordTree& tree) override { fit::adoptSchema(tree, m_file->model()); }
  [[nodiscard]] std::unique_ptr<RecordValidation> validate(layout::RecordSet const& set) override;

  [[nodiscard]] DocumentValidator& validator(std::size_t thread) { return *m_validators[thread]; }

 private:
  std::unique_ptr<SchemaFile> m_file;
  std::vector<std::unique_ptr<DocumentValidator>> m_validators;
  int m_status;
};

}  // namespace fdmorph::fdrec
