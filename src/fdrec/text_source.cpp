#include "fdrec/text_source.h"

#include <cstdio>

#include "fdrec/command.h"
#include "record/record_choice.h"
#include "source/diagnostic_output.h"

namespace fdmorph::fdrec {

std::optional<std::string> TextSource::Tree::read(std::string const& path) {
  if (path != m_path) return std::nullopt;
  return m_text;
}

TextSource::TextSource(std::string const& name, std::string text,
                       compiler::SourceOptions const& options)
    : m_files(name, std::move(text)), m_source(name, options, m_files) {
  if (m_source.diagnostics().hasErrors()) return;
  std::vector<compiler::DataItem const*> const records = record::chooseRecords(m_source, {});
  if (records.empty()) return;
  m_tree.emplace(*records.front(), record::NamingRules(), m_source.diagnostics());
}

int TextSource::printReports() const {
  compiler::Diagnostics const& diagnostics = m_source.diagnostics();
  compiler::DiagnosticStyle style = compiler::isColorWanted() ? compiler::DiagnosticStyle::colored
                                                              : compiler::DiagnosticStyle::plain;
  std::string text = compiler::printDiagnostics(diagnostics, style, "fdrec");
  std::fwrite(text.data(), 1, text.size(), stderr);
  return diagnostics.hasErrors() ? kErrors : kClean;
}

}  // namespace fdmorph::fdrec
