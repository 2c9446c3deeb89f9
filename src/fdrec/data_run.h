// What all commands on data do with their files and errors.
#pragma once

#include <cstdint>
#include <string>

#include "document/data_error.h"
#include "fdrec/command.h"
#include "framing/output_stream.h"
#include "framing/progress.h"

namespace fdmorph::fdrec {

/// Counts records and those with errors, prints errors, and says when a run ends.
class RunCounts {
 public:
  /// The run ends after `maxErrors` records with errors; 0: never. Messages hide
  /// `progress`, which may be null and must outlive this object.
  RunCounts(std::uint64_t maxErrors, framing::Progress* progress)
      : m_maxErrors(maxErrors), m_progress(progress) {}

  void addRecords(std::uint64_t records) { m_records += records; }
  [[nodiscard]] std::uint64_t records() const { return m_records; }

  /// Prints the lines of a record with errors. False if the run has to end.
  [[nodiscard]] bool addFailed(std::string const& lines);

  [[nodiscard]] bool hasErrors() const { return m_failed > 0; }

  /// Prints "fdrec: N records read, M with errors" if there are any.
  void printSummary() const;

 private:
  std::uint64_t m_maxErrors;
  framing::Progress* m_progress;
  std::uint64_t m_records = 0;
  std::uint64_t m_failed = 0;
};

/// Opens an output, and prints why it cannot be opened. The result is an exit status.
[[nodiscard]] int openOutput(framing::OutputStream& output, std::string const& path);

/// Puts an output in place, and prints why it cannot be written. The result is an exit
/// status.
[[nodiscard]] int commitOutput(framing::OutputStream& output, std::string const& path);

}  // namespace fdmorph::fdrec
