#include "fdrec/data_run.h"

#include <cstdio>

#include "fdrec/files.h"
#include "source/diagnostics.h"

namespace fdmorph::fdrec {
namespace {

std::string nameOfOutput(std::string const& path) {
  return path.empty() || path == "-" ? "the standard output" : compiler::quoted(path);
}

}  // namespace

bool RunCounts::addFailed(std::string const& lines) {
  if (m_progress != nullptr) m_progress->hide();
  std::fwrite(lines.data(), 1, lines.size(), stderr);
  ++m_failed;
  return m_maxErrors == 0 || m_failed < m_maxErrors;
}

void RunCounts::printSummary() const {
  if (m_failed == 0) return;
  std::string line = "fdrec: " + std::to_string(m_records) +
                     (m_records == 1 ? " record" : " records") + " read, " +
                     std::to_string(m_failed) + " with errors\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
}

int openOutput(framing::OutputStream& output, std::string const& path) {
  std::optional<std::string> why = output.open(path);
  if (why) printError("cannot write " + nameOfOutput(path) + ": " + *why, "file");
  return why ? kFailed : kClean;
}

int commitOutput(framing::OutputStream& output, std::string const& path) {
  if (output.commit()) return kClean;
  printError("cannot write " + nameOfOutput(path) + ": " +
                 output.failure().value_or("the file cannot be put in place"),
             "file");
  return kFailed;
}

}  // namespace fdmorph::fdrec
