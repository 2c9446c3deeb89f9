#include "library/layout_file.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "fdrec/common_options.h"
#include "library/option_words.h"
#include "source/diagnostic_output.h"

namespace fdmorph::library {

using document::Syntax;

namespace {

std::string usageLine(std::string const& text) {
  return "error: " + compiler::printable(text) + " [usage]";
}

// All diagnostics, without a line feed at the end.
std::string messageOf(compiler::Diagnostics const& diagnostics) {
  std::string text =
      compiler::printDiagnostics(diagnostics, compiler::DiagnosticStyle::plain, "fdrec");
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

}  // namespace

LayoutFile::LayoutFile(std::string const& copybook, std::string_view options) {
  std::string error = parse(options);
  if (!error.empty()) {
    m_fault = {fdrec::kUsageError, usageLine(error)};
    return;
  }
  // Counts are an argument of each call.
  m_data.hasCounts = false;
  open(copybook);
  if (m_fault.status != fdrec::kClean) return;
  addUse(m_input->set(), Syntax::json, Counts::none);
  addCounts();
}

std::string LayoutFile::parse(std::string_view options) {
  std::optional<std::vector<std::string>> words = optionWords(options);
  if (!words) return "a quotation in the options does not end";
  CLI::App app;
  app.set_help_flag();
  fdrec::declareCommonOptions(app, m_common);
  m_data.declare(app);
  std::ranges::reverse(*words);  // as the parser takes them
  try {
    app.parse(std::move(*words));
  } catch (CLI::ParseError const& error) {
    return error.what();
  }
  if (!m_data.schema.empty()) return "--schema: only fdrec itself validates documents";
  return {};
}

void LayoutFile::open(std::string const& copybook) {
  m_input.emplace(copybook, m_common, m_data);
  if (m_input->hasCopybook()) m_sources = &m_input->diagnostics().sources();
  if (m_input->hasLayout() && !m_input->diagnostics().hasErrors()) {
    use(Syntax::xml, Counts::none)
        .conversion.emplace(m_input->set(), m_data, Syntax::xml, m_input->diagnostics());
  }
  m_fault.status = m_input->complete();
  if (m_fault.status == fdrec::kClean) m_fault.status = m_input->cleanStatus();
  if (m_input->hasCopybook()) m_fault.message = messageOf(m_input->diagnostics());
  for (std::string const& each : m_input->lineWarnings()) {
    addLine("warning: " + compiler::printable(each) + " [lines]");
  }
  if (!m_input->usageError().empty()) addLine(usageLine(m_input->usageError()));
}

void LayoutFile::addLine(std::string const& line) {
  if (!m_fault.message.empty()) m_fault.message += '\n';
  m_fault.message += line;
}

void LayoutFile::addUse(layout::RecordSet const& set, Syntax syntax, Counts counts) {
  compiler::Diagnostics diagnostics(m_input->diagnostics().sources());
  Use& added = use(syntax, counts);
  added.conversion.emplace(set, m_data, syntax, diagnostics);
  if (diagnostics.hasErrors()) added.fault = {fdrec::kErrors, messageOf(diagnostics)};
}

// The layout once more, for count records. It has more rules.
void LayoutFile::addCounts() {
  layout::LayoutRules rules = m_input->set().rules();
  rules.hasCounts = true;
  rules.omitsEmpty = false;
  compiler::Diagnostics diagnostics(m_input->diagnostics().sources());
  m_counted =
      std::make_unique<layout::RecordSet>(m_input->trees(), rules, m_data.when, diagnostics);
  if (m_counted->maxCountSize() == 0) return;
  for (Syntax syntax : {Syntax::xml, Syntax::json}) {
    if (diagnostics.hasErrors()) {
      use(syntax, Counts::given).fault = {fdrec::kErrors, messageOf(diagnostics)};
    } else {
      addUse(*m_counted, syntax, Counts::given);
    }
  }
}

}  // namespace fdmorph::library
