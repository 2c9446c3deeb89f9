// Records of a file as a document.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "document/batch_decoding.h"
#include "fdrec/data_input.h"
#include "fdrec/data_run.h"
#include "fdrec/record_schema.h"
#include "fdrec/round_trip.h"
#include "framing/record_writer.h"

namespace fdmorph::fdrec {

/// The documents of a batch, and what they lack of its records.
struct ConvertedBatch {
  document::BatchText text;
  std::vector<TrippedRecord> residues;
};

/// One run of to-xml or to-json. To be used once.
class ToDocuments {
 public:
  /// All objects must outlive this one. `name` is that of the data in messages. The
  /// documents are validated against `schema`, unless it is null.
  ToDocuments(DataInput const& input, DataOptions const& data, document::Programs const& programs,
              std::string const& name, RecordSchema* schema);

  /// Converts all records of `source`. The result is an exit status.
  [[nodiscard]] int run(framing::InputStream& source, std::string const& output);

 private:
  void convert(framing::InputStream& source, framing::PartRange const& part);
  [[nodiscard]] bool take(framing::Batch const& batch, ConvertedBatch const& converted);
  [[nodiscard]] bool takeRecords(framing::Batch const& batch, document::BatchText const& text);
  void takeResidues(ConvertedBatch const& converted);
  [[nodiscard]] bool takeLeftOut(framing::Batch const& batch,
                                 document::LeftOutRecord const& record);
  void writeLong(framing::Batch const& batch, framing::Frame const& frame);
  void takeFirst(framing::Batch const& batch, document::BatchText const& text);
  void reportNone();
  void writeStart();
  void writeEnd();
  [[nodiscard]] bool isXml() const;

  DataInput const& m_input;
  DataOptions const& m_data;
  document::Programs const& m_programs;
  std::unique_ptr<RecordValidation> m_validation;  // null without --schema
  std::string const& m_name;
  std::vector<std::unique_ptr<document::Decoder>> m_decoders;  // one for each thread
  std::vector<std::unique_ptr<RoundTrip>> m_trips;             // the same, with --residue
  std::unique_ptr<document::Decoder> m_longDecoder;            // see writeLong
  framing::OutputStream m_output;
  framing::OutputStream m_rejects;
  framing::OutputStream m_residue;
  std::unique_ptr<framing::RecordWriter> m_rejectWriter;
  std::unique_ptr<framing::Progress> m_progress;
  std::unique_ptr<RunCounts> m_counts;
  std::uint64_t m_written = 0;  // documents
  bool m_endsEarly = false;
};

}  // namespace fdmorph::fdrec
