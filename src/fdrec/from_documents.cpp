#include "fdrec/from_documents.h"

#include <algorithm>
#include <cstdio>

#include "document/error_lines.h"
#include "fdrec/files.h"

namespace fdmorph::fdrec {

using document::DocumentRecord;
using document::Syntax;

namespace {

bool endsTheRun(DocumentRecord const& record) {
  return std::ranges::any_of(record.errors, [](document::DataError const& error) {
    return error.code == document::ErrorCode::xml;
  });
}

// Whether an error says that no bytes can be made of a part, or others than the document
// asks for. If all bytes are known it does not matter.
bool isAboutBytes(document::DataError const& error) {
  using document::ErrorCode;
  switch (error.code) {
    case ErrorCode::character:
    case ErrorCode::number:
    case ErrorCode::overflow:
    case ErrorCode::precision:
    case ErrorCode::length:
    case ErrorCode::odo:
    case ErrorCode::view:
      return true;
    default:
      return false;
  }
}

}  // namespace

FromDocuments::FromDocuments(DataInput& input, DataOptions const& data, Syntax syntax,
                             std::string const& name, RecordSchema* schema)
    : m_input(input),
      m_data(data),
      m_syntax(syntax),
      m_name(name),
      m_names(input.set().names(), nameMatch(data, syntax)),
      m_encoder(input.set(), m_names, makeEncodeRules(data, syntax)),
      m_form(input) {
  if (schema != nullptr) m_validation = schema->validate(input.set());
  // A residue may take the place of bytes that views and counters depend on. A schema
  // needs the text of each record.
  if (syntax == Syntax::xml && data.residue.empty() && schema == nullptr) {
    m_predictor = document::PredictedReader::make(input.set(), makeEncodeRules(data, syntax),
                                                  input.diagnostics());
  }
}

std::unique_ptr<document::DocumentReader> FromDocuments::makeReader(framing::InputStream& source) {
  document::ReaderOptions options = makeReaderOptions(m_input.set(), m_names, m_data);
  options.keepsText = !m_data.rejects.empty() || m_validation != nullptr;
  // What is left of a record is not enough to find the places of what a validator says,
  // or to encode it a second time, see runsOfData.
  bool const isEncodedTwice = !m_data.residue.empty() && m_input.set().rules().hasCounts;
  bool const isNeededWhole = m_validation != nullptr || isEncodedTwice;
  if (!isNeededWhole) options.absorption.absorber = &m_encoder;
  auto read = [&source](std::span<char> buffer) -> std::optional<std::size_t> {
    std::size_t size = source.read(buffer.data(), buffer.size());
    if (source.failure()) return std::nullopt;
    return size;
  };
  return makeDocumentReader(m_syntax, read, m_names, options, m_predictor.get());
}

int FromDocuments::run(framing::InputStream& source, std::string const& output) {
  if (!m_data.residue.empty()) {
    m_residue = std::make_unique<ResidueFile>();
    if (int status = m_residue->open(m_data.residue); status != kClean) return status;
  }
  if (int status = openOutput(m_output, output); status != kClean) return status;
  if (!m_data.rejects.empty()) {
    if (int status = openOutput(m_rejects, m_data.rejects); status != kClean) return status;
  }
  if (m_data.framing.hasProgress()) {
    m_progress =
        std::make_unique<framing::Progress>(framing::Progress::standardError(), source.end());
  }
  m_counts = std::make_unique<RunCounts>(m_data.maxErrors, m_progress.get());
  m_writer = std::make_unique<framing::RecordWriter>(m_output, m_input.framing());
  std::unique_ptr<document::DocumentReader> reader = makeReader(source);
  convert(*reader);
  if (m_progress) m_progress->finish();
  if (reader->hasFailed()) {
    printReadFailure(m_name, source.failure().value_or("unknown error"));
    m_endsEarly = true;
  }
  m_counts->printSummary();
  int status = kClean;
  if (!m_endsEarly || m_output.isStandardOutput()) {
    m_writer->finish();
    status = commitOutput(m_output, output);
  }
  if (!m_data.rejects.empty()) {
    status = std::max(status, commitOutput(m_rejects, m_data.rejects));
  }
  if (reader->hasFailed() || status != kClean) return kFailed;
  return m_counts->hasErrors() || m_endsEarly ? kErrors : m_input.cleanStatus();
}

void FromDocuments::convert(document::DocumentReader& reader) {
  framing::FramingRules const& framing = m_input.framing();
  DocumentRecord record;
  while (reader.next(record)) {
    bool isSkipped = record.number <= framing.skip && !endsTheRun(record);
    if (isSkipped) continue;
    // A record that is not skipped has a number above framing.skip, unless the run ends.
    std::uint64_t const ordinal = record.number - std::min(record.number, framing.skip);
    if (framing.limit && ordinal > *framing.limit) return;
    m_counts->addRecords(1);
    if (!take(record) || m_output.failure()) {
      m_endsEarly = true;
      return;
    }
    if (m_progress) m_progress->update(reader.bytesRead(), m_counts->records());
    if (framing.limit && ordinal == *framing.limit) return;
  }
}

// Converts one record. False if the run has to end.
bool FromDocuments::take(DocumentRecord& record) {
  if (m_residue && !m_residue->read(record.number, m_recordResidue)) return false;
  if (m_validation && record.errors.empty() && !m_validation->check(record)) return fail(record);
  if (!encode(record)) return fail(record);
  std::string_view bytes = m_form.assemble(m_encoded, m_recordResidue);
  framing::WriteResult result = m_writer->write(bytes, framing::RecordWriter::LineEnd::exact);
  if (result == framing::WriteResult::written) return true;
  document::DataError error{document::ErrorCode::frame, std::string(framing::wordsOf(result))};
  error.line = record.line;
  error.column = record.column;
  record.errors.push_back(std::move(error));
  return fail(record);
}

// The bytes of the residue that belong to the data of a record. Counts that follow the
// data begin where the document alone makes it end, or so far before the known end.
std::vector<document::ByteRun> FromDocuments::runsOfData(document::Instances const& instances) {
  std::vector<document::ByteRun> runs;
  for (document::Residue::Run const& run : m_recordResidue.runs) {
    runs.push_back({run.offset, run.bytes});
  }
  bool areCountsAfterData = m_input.set().rules().hasCounts && !m_input.lengths().countsAt;
  document::DataErrors errors;
  if (runs.empty() || !areCountsAfterData || !m_encoder.encode(instances, errors)) return runs;
  std::uint64_t end = m_encoder.result().bytes.size();
  std::uint64_t const counts = m_encoder.result().counts.size();
  if (m_recordResidue.length) {
    end = *m_recordResidue.length - std::min(*m_recordResidue.length, counts);
  }
  std::erase_if(runs, [end](document::ByteRun const& run) { return run.offset >= end; });
  for (document::ByteRun& run : runs) run.bytes = run.bytes.substr(0, end - run.offset);
  return runs;
}

// Makes the bytes of a record, unless it has errors.
bool FromDocuments::encode(DocumentRecord& record) {
  if (record.isPredicted) {
    m_encoded = {0, m_predictor->record(), {}};
    return true;
  }
  std::vector<document::ByteRun> const runs = runsOfData(record.instances);
  bool isEncoded =
      !record.instances.all.empty() && m_encoder.encode(record.instances, record.errors, runs);
  if (isEncoded && record.errors.empty()) {
    m_encoded = m_encoder.result();
    return true;
  }
  // A document that could not be read back when it was written has its record here.
  if (!m_recordResidue.isWhole() || !std::ranges::all_of(record.errors, isAboutBytes)) return false;
  record.errors.clear();
  m_encoded = {};
  return true;
}

bool FromDocuments::fail(DocumentRecord const& record) {
  std::string lines;
  for (document::DataError const& error : record.errors) {
    lines += document::documentErrorLine(m_name, record.number, error);
  }
  if (!m_data.rejects.empty() && !record.text.isEmpty()) {
    record.text.write([this](std::string_view text) { m_rejects.write(text); });
    m_rejects.write("\n");
  }
  return m_counts->addFailed(lines) && !endsTheRun(record);
}

}  // namespace fdmorph::fdrec
