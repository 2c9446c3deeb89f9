#include "fdrec/to_documents.h"

#include <algorithm>
#include <cstdio>

#include "document/error_lines.h"
#include "fdrec/files.h"
#include "framing/ordered_workers.h"
#include "framing/record_reader.h"
#include "source/diagnostics.h"

namespace fdmorph::fdrec {

using document::BatchText;
using framing::Batch;

namespace {

/// What a run takes of the memory.
struct Shares {
  std::size_t threads;
  std::size_t batchBytes;  ///< of records
};

// Texts are several times as long as their records. Those of all batches that are in
// memory, two more than there are threads, are to have some 16 MB.
Shares sharesOf(framing::FramingRules const& framing, document::Programs const& programs,
                std::size_t threads) {
  constexpr double kMaxRatio = 8;
  constexpr std::size_t kMaxBatches = 6;
  constexpr std::size_t kMost = framing::RecordReader::kBatchBytes;
  constexpr std::size_t kLeast = 4096;
  // A batch is one record then, of any length.
  if (framing.maxRecordLength > kMost) threads = 1;
  double ratio = kMaxRatio;
  for (std::size_t i = 0; i < programs.set().layouts().size(); ++i) {
    layout::Layout const& layout = programs.set().layouts()[i];
    double const size = std::max(static_cast<double>(layout.size()), 1.0);
    ratio = std::max(ratio, document::markupBytes(programs[i], layout) / size);
  }
  std::size_t const batches = std::max(threads + 2, kMaxBatches);
  double const share = static_cast<double>(kMost) * kMaxRatio / ratio *
                       static_cast<double>(kMaxBatches) / static_cast<double>(batches);
  return {threads, std::max(static_cast<std::size_t>(share), kLeast)};
}

}  // namespace

ToDocuments::ToDocuments(DataInput const& input, DataOptions const& data,
                         document::Programs const& programs, std::string const& name,
                         RecordSchema* schema)
    : m_input(input), m_data(data), m_programs(programs), m_name(name) {
  if (schema != nullptr) m_validation = schema->validate(input.set());
}

bool ToDocuments::isXml() const {
  return m_programs.rules().syntax == document::Syntax::xml;
}

int ToDocuments::run(framing::InputStream& source, std::string const& output) {
  ChosenPart part = m_data.framing.choosePart(source, m_name);
  if (part.status != kClean) return part.status;
  if (int status = openOutput(m_output, output); status != kClean) return status;
  if (!m_data.rejects.empty()) {
    if (int status = openOutput(m_rejects, m_data.rejects); status != kClean) return status;
    m_rejectWriter = std::make_unique<framing::RecordWriter>(m_rejects, m_input.framing());
  }
  if (!m_data.residue.empty()) {
    if (int status = openOutput(m_residue, m_data.residue); status != kClean) return status;
    m_residue.write(std::string(document::kResidueHead) + '\n');
  }
  if (m_data.framing.hasProgress()) {
    m_progress =
        std::make_unique<framing::Progress>(framing::Progress::standardError(), source.end());
  }
  m_counts = std::make_unique<RunCounts>(m_data.maxErrors, m_progress.get());
  writeStart();
  convert(source, part.range);
  if (m_data.isSingle && isXml() && m_counts->records() == 0) reportNone();
  if (m_progress) m_progress->finish();
  if (source.failure()) {
    printReadFailure(m_name, *source.failure());
    m_endsEarly = true;
  }
  m_counts->printSummary();
  if (!m_endsEarly || m_output.isStandardOutput()) writeEnd();
  int status = kClean;
  if (!m_endsEarly || m_output.isStandardOutput()) status = commitOutput(m_output, output);
  if (m_rejectWriter) {
    m_rejectWriter->finish();
    status = std::max(status, commitOutput(m_rejects, m_data.rejects));
  }
  if (!m_data.residue.empty() && !m_endsEarly) {
    status = std::max(status, commitOutput(m_residue, m_data.residue));
  }
  if (source.failure() || status != kClean) return kFailed;
  return m_counts->hasErrors() || m_endsEarly ? kErrors : m_input.cleanStatus();
}

void ToDocuments::convert(framing::InputStream& source, framing::PartRange const& part) {
  Shares const shares = sharesOf(m_input.framing(), m_programs, m_data.framing.threads());
  for (std::size_t i = 0; i < shares.threads; ++i) {
    m_decoders.push_back(std::make_unique<document::Decoder>(m_programs, m_input.lengths()));
    if (m_data.residue.empty()) continue;
    m_trips.push_back(std::make_unique<RoundTrip>(m_input, m_data, m_programs.rules().syntax));
  }
  framing::RecordReader reader(source, m_input.framing(), part, shares.batchBytes);
  auto const longDocuments =
      m_validation ? document::LongDocuments::kept : document::LongDocuments::leftOut;
  framing::OrderedSteps<Batch, ConvertedBatch> steps;
  steps.read = [&reader](Batch& batch) { return reader.next(batch); };
  steps.work = [this, longDocuments](std::size_t thread, Batch& batch, ConvertedBatch& converted) {
    converted.text.clear();
    document::DocumentCheck check;
    if (m_validation) check = m_validation->checkOfBytes(thread);
    document::decodeBatch(*m_decoders[thread], batch, converted.text, longDocuments, check);
    if (m_trips.empty()) return;
    converted.residues = m_trips[thread]->run(batch, converted.text, *m_decoders[thread]);
  };
  steps.take = [this](Batch& batch, ConvertedBatch& converted) { return take(batch, converted); };
  framing::OrderedWorkers<Batch, ConvertedBatch>::run(shares.threads, steps);
}

// Writes the documents of a batch. False if the run has to end.
bool ToDocuments::take(Batch const& batch, ConvertedBatch const& converted) {
  bool goesOn = takeRecords(batch, converted.text);
  if (goesOn) takeResidues(converted);
  if (goesOn && batch.error) {
    if (m_progress) m_progress->hide();
    printFrameError(m_name, *batch.error);
    m_counts->addRecords(1);
    static_cast<void>(m_counts->addFailed({}));
    goesOn = false;
  }
  if (!goesOn || m_output.failure()) {
    m_endsEarly = true;
    return false;
  }
  if (m_progress) m_progress->update(batch.end, m_counts->records());
  return true;
}

bool ToDocuments::takeRecords(Batch const& batch, BatchText const& text) {
  std::uint64_t before = m_counts->records();
  bool areSeveral = before + batch.frames.size() > 1;
  if (m_data.isSingle && isXml() && areSeveral) {
    takeFirst(batch, text);
    return false;
  }
  std::size_t begin = 0;
  for (document::LeftOutRecord const& record : text.leftOut) {
    m_output.write(text.text.text().substr(begin, record.textEnd - begin));
    begin = record.textEnd;
    m_counts->addRecords(before + record.frame + 1 - m_counts->records());
    if (!takeLeftOut(batch, record)) return false;
  }
  m_output.write(text.text.text().substr(begin));
  m_counts->addRecords(before + batch.frames.size() - m_counts->records());
  return true;
}

void ToDocuments::takeResidues(ConvertedBatch const& converted) {
  for (TrippedRecord const& each : converted.residues) {
    m_residue.write(document::residueLines(m_written + each.ordinal + 1, each.residue));
  }
  m_written += converted.text.documents();
}

// False if the run has to end.
bool ToDocuments::takeLeftOut(Batch const& batch, document::LeftOutRecord const& record) {
  framing::Frame const& frame = batch.frames[record.frame];
  if (record.isLong) {
    writeLong(batch, frame);
    return true;
  }
  std::string lines;
  for (document::DataError const& error : record.errors) {
    lines += document::byteErrorLine(m_name, frame.number, frame.offset, error);
  }
  if (m_rejectWriter) m_rejectWriter->writeRaw(batch, frame);
  return m_counts->addFailed(lines);
}

// Other threads may be at work with their decoders.
void ToDocuments::writeLong(Batch const& batch, framing::Frame const& frame) {
  bool const isAlone = m_decoders.size() == 1;
  if (!isAlone && !m_longDecoder) {
    m_longDecoder = std::make_unique<document::Decoder>(m_programs, m_input.lengths());
  }
  document::writeLong(isAlone ? *m_decoders.front() : *m_longDecoder,
                      document::storedRecord(batch, frame),
                      [this](std::string_view text) { m_output.write(text); });
}

// Writes the first record of all, if it is in this batch, and reports the second.
void ToDocuments::takeFirst(Batch const& batch, BatchText const& text) {
  bool isHere = m_counts->records() == 0;
  if (isHere) {
    m_counts->addRecords(1);
    if (!text.leftOut.empty() && text.leftOut.front().frame == 0) {
      if (!takeLeftOut(batch, text.leftOut.front())) return;
    } else {
      m_output.write(text.text.text().substr(0, text.ends.front()));
    }
  }
  framing::Frame const& second = batch.frames[isHere ? 1 : 0];
  m_counts->addRecords(1);
  document::DataError error{document::ErrorCode::single, "expected one record, found another"};
  static_cast<void>(
      m_counts->addFailed(document::byteErrorLine(m_name, second.number, second.offset, error)));
}

void ToDocuments::reportNone() {
  if (m_counts->hasErrors()) return;
  std::string const line = "fdrec: " + compiler::printable(m_name) +
                           ": error: expected one record, found none [single]\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
  m_endsEarly = true;
}

void ToDocuments::writeStart() {
  if (!isXml() || m_data.areLines) return;
  m_output.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
  if (!m_data.isSingle) m_output.write('<' + m_data.wrapper + ">\n");
}

void ToDocuments::writeEnd() {
  if (!isXml() || m_data.areLines || m_data.isSingle) return;
  m_output.write("</" + m_data.wrapper + ">\n");
}

}  // namespace fdmorph::fdrec
