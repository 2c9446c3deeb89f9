#include "fdrec/copybook_file.h"

#include <cstdio>

#include "record/part_rules.h"
#include "record/storage_rules.h"
#include "source/diagnostic_output.h"

namespace fdmorph::fdrec {

using compiler::Diagnostics;
using compiler::DiagnosticStyle;
using compiler::Severity;

CopybookFile::CopybookFile(std::string const& path, CommonOptions const& options, CopybookUse use)
    : m_options(options), m_source(path, options.source, m_disk) {
  compiler::Sources const& sources = m_source.sources();
  for (std::uint32_t text = 1; text <= sources.textCount(); ++text) {
    options.readFiles->add(sources.fileOf(text)->path);
  }
  if (diagnostics().hasErrors()) return;
  std::vector<compiler::DataItem const*> records = record::chooseRecords(m_source, options.choice);
  if (diagnostics().hasErrors()) return;
  m_records = std::move(records);
  if (use == CopybookUse::items) return;
  for (compiler::DataItem const* each : m_records) {
    m_trees.emplace_back(*each, options.naming, diagnostics());
  }
}

void CopybookFile::changeTrees(TreeChange const& change) {
  for (record::RecordTree& each : m_trees) change(each);
}

void CopybookFile::checkLayout() {
  for (record::RecordTree const& each : m_trees) {
    record::checkParts(each, diagnostics());
    record::checkStorage(each, diagnostics());
  }
}

int CopybookFile::status() const {
  Diagnostics const& diagnostics = m_source.diagnostics();
  if (m_source.file() == nullptr) return kFailed;
  bool isWarningAnError =
      m_options.hasWarningsAsErrors && diagnostics.countOf(Severity::warning) > 0;
  return diagnostics.hasErrors() || isWarningAnError ? kErrors : kClean;
}

int CopybookFile::finish() const {
  Diagnostics const& diagnostics = m_source.diagnostics();
  DiagnosticStyle style =
      compiler::isColorWanted() ? DiagnosticStyle::colored : DiagnosticStyle::plain;
  std::string text = compiler::printDiagnostics(diagnostics, style, "fdrec") +
                     compiler::printSummary(diagnostics, "fdrec");
  std::fwrite(text.data(), 1, text.size(), stderr);
  return status();
}

}  // namespace fdmorph::fdrec
