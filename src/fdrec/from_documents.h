// Documents as the records of a file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "document/predicted_reader.h"
#include "fdrec/data_input.h"
#include "fdrec/data_run.h"
#include "fdrec/document_rules.h"
#include "fdrec/record_schema.h"
#include "fdrec/residue_file.h"
#include "fdrec/stored_form.h"
#include "framing/record_writer.h"

namespace fdmorph::fdrec {

/// One run of from-xml or from-json. To be used once.
class FromDocuments {
 public:
  /// All objects must outlive this one. `name` is that of the document in messages. The
  /// records are validated against `schema`, unless it is null.
  FromDocuments(DataInput& input, DataOptions const& data, document::Syntax syntax,
                std::string const& name, RecordSchema* schema);

  /// Converts all records of `source`. The result is an exit status.
  [[nodiscard]] int run(framing::InputStream& source, std::string const& output);

 private:
  void convert(document::DocumentReader& reader);
  [[nodiscard]] bool take(document::DocumentRecord& record);
  [[nodiscard]] bool encode(document::DocumentRecord& record);
  [[nodiscard]] std::vector<document::ByteRun> runsOfData(document::Instances const& instances);
  [[nodiscard]] bool fail(document::DocumentRecord const& record);
  [[nodiscard]] std::unique_ptr<document::DocumentReader> makeReader(framing::InputStream& source);

  DataInput const& m_input;
  DataOptions const& m_data;
  document::Syntax m_syntax;
  std::string const& m_name;
  document::NameNumbers m_names;
  document::Encoder m_encoder;
  StoredForm m_form;
  std::unique_ptr<document::PredictedReader> m_predictor;  // null if it cannot be used
  document::EncodedRecord m_encoded;
  framing::OutputStream m_output;
  framing::OutputStream m_rejects;
  std::unique_ptr<framing::RecordWriter> m_writer;
  std::unique_ptr<framing::Progress> m_progress;
  std::unique_ptr<RunCounts> m_counts;
  std::unique_ptr<ResidueFile> m_residue;
  std::unique_ptr<RecordValidation> m_validation;  // null without --schema
  document::Residue m_recordResidue;
  bool m_endsEarly = false;
};

}  // namespace fdmorph::fdrec
