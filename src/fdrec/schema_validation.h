// Records as documents that must be valid.
#pragma once

#include "fdrec/data_schema.h"
#include "fdrec/record_schema.h"
#include "layout/record_set.h"

namespace fdmorph::fdrec {

/// The validation by a schema.
class SchemaValidation : public RecordValidation {
 public:
  /// Both must outlive this object.
  SchemaValidation(DataSchema& schema, layout::RecordSet const& set)
      : m_schema(schema), m_set(set) {}

  [[nodiscard]] document::DocumentCheck checkOfBytes(std::size_t thread) override;
  [[nodiscard]] bool check(document::DocumentRecord& record) override;

 private:
  DataSchema& m_schema;
  layout::RecordSet const& m_set;
};

}  // namespace fdmorph::fdrec
