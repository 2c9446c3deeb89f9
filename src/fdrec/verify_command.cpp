// fdrec verify: do the documents of records give the same bytes?
#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>

#include "document/error_lines.h"
#include "fdrec/commands.h"
#include "fdrec/data_run.h"
#include "fdrec/files.h"
#include "fdrec/round_trip.h"
#include "framing/ordered_workers.h"
#include "framing/record_reader.h"

namespace fdmorph::fdrec {
namespace {

using framing::Batch;

/// The documents of a batch and what they lack.
struct CheckedBatch {
  document::BatchText text;
  std::vector<TrippedRecord> different;
};

class VerifyCommand : public Command {
 public:
  void declare(CLI::App& app) override;
  [[nodiscard]] int run(CommonOptions const& options) override;

 private:
  void verify(DataInput const& input, document::Programs const& programs,
              framing::InputStream& source, framing::PartRange const& part);
  [[nodiscard]] bool take(Batch const& batch, CheckedBatch const& checked);
  void printDifference(Batch const& batch, TrippedRecord const& record);

  std::string m_copybook;
  std::string m_path;
  DataOptions m_data;
  std::string m_name;
  framing::OutputStream m_output;
  std::unique_ptr<RunCounts> m_counts;
  std::uint64_t m_different = 0;
};

void VerifyCommand::declare(CLI::App& app) {
  app.add_option("COPYBOOK", m_copybook, "copybook or program; - is the standard input")
      ->required()
      ->option_text(" ");
  app.add_option("DATA", m_path, "file of records; default: the standard input")->option_text(" ");
  m_data.declare(app);
}

int VerifyCommand::run(CommonOptions const& options) {
  if (int status = refuseSharedInput(m_copybook, m_path); status != kClean) return status;
  DataInput input(m_copybook, options, m_data);
  std::unique_ptr<document::Programs> programs;
  if (input.hasLayout() && !input.diagnostics().hasErrors()) {
    document::OutputRules rules = makeOutputRules(m_data, document::Syntax::xml);
    programs = std::make_unique<document::Programs>(input.set(), rules, input.diagnostics());
  }
  if (int status = input.finish(); status != kClean) return status;
  m_name = inputName(m_path);
  framing::InputStream source;
  if (auto why = source.open(m_path)) {
    printReadFailure(m_name, *why);
    return kFailed;
  }
  ChosenPart part = m_data.framing.choosePart(source, m_name);
  if (part.status != kClean) return part.status;
  if (int status = openOutput(m_output, options.output); status != kClean) return status;
  m_counts = std::make_unique<RunCounts>(m_data.maxErrors, nullptr);
  verify(input, *programs, source, part.range);
  if (source.failure()) printReadFailure(m_name, *source.failure());
  m_output.write(std::to_string(m_counts->records()) + " records, " + std::to_string(m_different) +
                 " differ\n");
  m_counts->printSummary();
  int status = commitOutput(m_output, options.output);
  if (source.failure() || status != kClean) return kFailed;
  return m_counts->hasErrors() || m_different > 0 ? kErrors : input.cleanStatus();
}

void VerifyCommand::verify(DataInput const& input, document::Programs const& programs,
                           framing::InputStream& source, framing::PartRange const& part) {
  // A thread may have some copies of a record.
  bool const isLong = input.framing().maxRecordLength > framing::RecordReader::kBatchBytes;
  std::size_t const threads = isLong ? 1 : m_data.framing.threads();
  std::vector<std::unique_ptr<document::Decoder>> decoders;
  std::vector<std::unique_ptr<RoundTrip>> trips;
  for (std::size_t i = 0; i < threads; ++i) {
    decoders.push_back(std::make_unique<document::Decoder>(programs, input.lengths()));
    trips.push_back(std::make_unique<RoundTrip>(input, m_data, document::Syntax::xml));
  }
  framing::RecordReader reader(source, input.framing(), part);
  framing::OrderedSteps<Batch, CheckedBatch> steps;
  steps.read = [&reader](Batch& batch) { return reader.next(batch); };
  steps.work = [&](std::size_t thread, Batch& batch, CheckedBatch& checked) {
    checked.text.clear();
    document::decodeBatch(*decoders[thread], batch, checked.text, document::LongDocuments::leftOut);
    checked.different = trips[thread]->run(batch, checked.text, *decoders[thread]);
  };
  steps.take = [this](Batch& batch, CheckedBatch& checked) { return take(batch, checked); };
  framing::OrderedWorkers<Batch, CheckedBatch>::run(threads, steps);
}

bool VerifyCommand::take(Batch const& batch, CheckedBatch const& checked) {
  std::uint64_t const before = m_counts->records();
  auto different = checked.different.begin();
  auto printUpTo = [&](std::size_t end) {
    for (; different != checked.different.end() && different->frame < end; ++different) {
      printDifference(batch, *different);
      ++m_different;
    }
    m_counts->addRecords(before + end - m_counts->records());
  };
  for (document::LeftOutRecord const& failed : checked.text.leftOut) {
    printUpTo(failed.frame + 1);
    if (failed.isLong) continue;
    framing::Frame const& frame = batch.frames[failed.frame];
    std::string lines;
    for (document::DataError const& error : failed.errors) {
      lines += document::byteErrorLine(m_name, frame.number, frame.offset, error);
    }
    if (!m_counts->addFailed(lines)) return false;
  }
  printUpTo(batch.frames.size());
  if (!batch.error) return !m_output.failure();
  printFrameError(m_name, *batch.error);
  m_counts->addRecords(1);
  static_cast<void>(m_counts->addFailed({}));
  return false;
}

void VerifyCommand::printDifference(Batch const& batch, TrippedRecord const& record) {
  framing::Frame const& frame = batch.frames[record.frame];
  std::string line = m_name + ": record " + std::to_string(frame.number) + ": ";
  if (!record.error.empty()) {
    line += "its document cannot be read back: " + record.error;
  } else if (record.residue.length) {
    line += "length " + std::to_string(*record.residue.length) + " becomes " +
            std::to_string(record.made.size());
  } else {
    std::string_view stored = batch.data(frame);
    std::uint64_t count = 0;
    std::uint64_t first = 0;
    for (std::uint64_t i = stored.size(); i-- > 0;) {
      if (stored[i] == record.made[i]) continue;
      ++count;
      first = i;
    }
    line += std::to_string(count) + (count == 1 ? " byte differs" : " bytes differ") +
            ", the first at byte " + std::to_string(frame.offset + first) + ": " +
            document::hexadecimal(stored.substr(first, 1)) + " becomes " +
            document::hexadecimal(std::string_view(record.made).substr(first, 1));
  }
  m_output.write(line + '\n');
}

}  // namespace

std::unique_ptr<Command> makeVerifyCommand() {
  return std::make_unique<VerifyCommand>();
}

}  // namespace fdmorph::fdrec
