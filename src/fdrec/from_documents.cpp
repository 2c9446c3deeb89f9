#include "fdrec/from_documents.h"

#include <algorithm>
#include <cstdio>

#include "document/error_lines.h"
#include "document/json_reader.h"
#include "document/xml_reader.h"
#include "fdrec/files.h"

namespace fdmorph::fdrec {

using document::DocumentRecord;
using document::Syntax;
using framing::Format;

namespace {

document::NameMatch matchOf(DataOptions const& data, Syntax syntax) {
  bool isLocal = syntax == Syntax::json || data.matchesAnyNamespace;
  return isLocal ? document::NameMatch::local : document::NameMatch::exact;
}

document::EncodeRules makeEncodeRules(DataOptions const& data, Syntax syntax) {
  document::EncodeRules rules;
  rules.ignoresUnknown = data.ignoresUnknown;
  rules.isJson = syntax == Syntax::json;
  Format format = data.framing.format();
  rules.endsWithViews =
      format == Format::rdw || format == Format::bdw || format == Format::gnucobolVariable;
  return rules;
}

bool endsTheRun(DocumentRecord const& record) {
  return std::ranges::any_of(record.errors, [](document::DataError const& error) {
    return error.code == document::ErrorCode::xml;
  });
}

}  // namespace

FromDocuments::FromDocuments(DataInput const& input, DataOptions const& data, Syntax syntax,
                             std::string const& name)
    : m_input(input),
      m_data(data),
      m_syntax(syntax),
      m_name(name),
      m_names(input.set().names(), matchOf(data, syntax)),
      m_encoder(input.set(), m_names, makeEncodeRules(data, syntax)) {}

std::unique_ptr<document::DocumentReader> FromDocuments::makeReader(
    framing::InputStream& source) {
  document::ReaderOptions options;
  for (layout::Layout const& each : m_input.set().layouts()) {
    options.records.push_back(m_names.numberOf(each[0].name));
  }
  options.ignoresUnknown = m_data.ignoresUnknown;
  options.keepsText = !m_data.rejects.empty();
  auto read = [&source](std::span<char> buffer) -> std::optional<std::size_t> {
    std::size_t size = source.read(buffer.data(), buffer.size());
    if (source.failure()) return std::nullopt;
    return size;
  };
  if (m_syntax == Syntax::json) {
    return std::make_unique<document::JsonReader>(read, m_names, options);
  }
  return std::make_unique<document::XmlReader>(read, m_names, options);
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
    m_progress = std::make_unique<framing::Progress>(framing::Progress::standardError(),
                                                     source.end());
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
    if (framing.limit && record.number > framing.skip + *framing.limit) return;
    m_counts->addRecords(1);
    if (!take(record) || m_output.failure()) {
      m_endsEarly = true;
      return;
    }
    if (m_progress) m_progress->update(reader.bytesRead(), m_counts->records());
    if (framing.limit && record.number == framing.skip + *framing.limit) return;
  }
}

// Converts one record. False if the run has to end.
bool FromDocuments::take(DocumentRecord& record) {
  if (m_residue && !m_residue->read(record.number, m_recordResidue)) return false;
  std::vector<document::ByteRun> runs;
  for (document::Residue::Run const& run : m_recordResidue.runs) {
    runs.push_back({run.offset, run.bytes});
  }
  bool isEncoded = !record.instances.all.empty() &&
                   m_encoder.encode(record.instances, record.errors, runs);
  if (!isEncoded || !record.errors.empty()) return fail(record);
  std::string_view bytes = assemble(m_encoder.result(), m_recordResidue);
  framing::WriteResult result = m_writer->write(bytes);
  if (result == framing::WriteResult::written) return true;
  document::DataError error{document::ErrorCode::frame, std::string(framing::wordsOf(result))};
  error.line = record.line;
  error.column = record.column;
  record.errors.push_back(std::move(error));
  return fail(record);
}

// The bytes of a record with its count record.
std::string_view FromDocuments::assemble(document::EncodedRecord const& record,
                                         document::Residue const& residue) {
  auto const append = [this](std::span<unsigned char const> bytes) {
    m_bytes.append(reinterpret_cast<char const*>(bytes.data()), bytes.size());
  };
  m_bytes.clear();
  append(record.bytes);
  framing::FramingRules const& framing = m_input.framing();
  if (m_input.set().rules().hasCounts) {
    if (auto at = m_input.lengths().countsAt) m_bytes.resize(*at, framing.blank);
    append(record.counts);
    if (framing.format == Format::fixed) m_bytes.resize(framing.recordLength, '\0');
  } else if (!residue.isEmpty() && framing.format == Format::fixed) {
    m_bytes.resize(framing.recordLength, framing.blank);
  }
  if (residue.length) m_bytes.resize(*residue.length, '\0');
  for (document::Residue::Run const& run : residue.runs) {
    if (run.offset > m_bytes.size()) continue;
    std::size_t size = std::min(run.bytes.size(), m_bytes.size() - run.offset);
    m_bytes.replace(run.offset, size, run.bytes, 0, size);
  }
  return m_bytes;
}

bool FromDocuments::fail(DocumentRecord const& record) {
  std::string lines;
  for (document::DataError const& error : record.errors) {
    lines += document::documentErrorLine(m_name, record.number, error);
  }
  if (!m_data.rejects.empty() && !record.text.empty()) {
    m_rejects.write(record.text);
    m_rejects.write("\n");
  }
  return m_counts->addFailed(lines) && !endsTheRun(record);
}

}  // namespace fdmorph::fdrec
