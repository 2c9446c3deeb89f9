// Documents that were just made, turned back into records.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "document/batch_decoding.h"
#include "document/residue.h"
#include "fdrec/document_rules.h"
#include "fdrec/stored_form.h"

namespace fdmorph::fdrec {

/// What a document does not have of its record.
struct TrippedRecord {
  std::size_t frame = 0;    ///< of the record in its batch
  std::size_t ordinal = 0;  ///< among those of the batch that have documents, from 0
  document::Residue residue;
  std::string made;   ///< the bytes that the document gives; empty if there is an error
  std::string error;  ///< why the document cannot be read back; empty if it can
};

/// For one thread.
class RoundTrip {
 public:
  /// All objects must outlive this one.
  RoundTrip(DataInput const& input, DataOptions const& data, document::Syntax syntax);

  /// The records of a batch whose documents give other bytes. The residue of a record
  /// that cannot be read back is the whole record. `decoder` makes the documents that are
  /// too long to be kept.
  [[nodiscard]] std::vector<TrippedRecord> run(framing::Batch const& batch,
                                               document::BatchText const& text,
                                               document::Decoder& decoder);

 private:
  [[nodiscard]] bool readLong(document::StoredRecord stored, document::Decoder& decoder,
                              document::DocumentRecord& record);
  void compare(std::string_view stored, document::DocumentRecord& record, TrippedRecord& result);

  document::Syntax m_syntax;
  document::NameNumbers m_names;
  document::ReaderOptions m_options;
  document::Encoder m_encoder;
  StoredForm m_form;
};

}  // namespace fdmorph::fdrec
