// Records as documents that must be valid.
#pragma once

#include <string_view>
#include <vector>

#include "document/batch_decoding.h"
#include "document/document_reader.h"
#include "fdrec/data_schema.h"
#include "layout/record_set.h"

namespace fdmorph::fdrec {

/// Validates records, and finds the places of faults in the record or document.
class RecordValidation {
 public:
  /// Both must outlive this object.
  RecordValidation(DataSchema& schema, layout::RecordSet const& set)
      : m_schema(schema), m_set(set) {}

  /// Validates the documents that a thread makes of records. This object must outlive
  /// the result.
  [[nodiscard]] document::DocumentCheck checkOfBytes(std::size_t thread);

  /// Validates a record as it was read, with its text. False if it has errors, which are
  /// added to it.
  [[nodiscard]] bool check(document::DocumentRecord& record);

 private:
  DataSchema& m_schema;
  layout::RecordSet const& m_set;
};

}  // namespace fdmorph::fdrec
