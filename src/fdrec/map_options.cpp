#include "fdrec/map_options.h"

#include <CLI/CLI.hpp>
#include <clocale>
#include <cstdio>

#include "description/directives.h"
#include "fdrec/files.h"
#include "source/diagnostic_output.h"

namespace fdmorph::fdrec {
namespace {

using compiler::Section;
using record::RecordSection;

std::optional<Section> sectionOf(RecordSection section) {
  switch (section) {
    case RecordSection::file:
      return Section::file;
    case RecordSection::workingStorage:
      return Section::workingStorage;
    case RecordSection::linkage:
      return Section::linkage;
    case RecordSection::localStorage:
      return Section::localStorage;
    case RecordSection::automatic:
      break;
  }
  return std::nullopt;
}

}  // namespace

DescribedSource::DescribedSource(std::string const& sourcePath,
                                 compiler::SourceOptions const& options)
    : path(sourcePath), source(path, options, disk) {}

int DescribedSource::finish(bool hasWarningsAsErrors) const {
  compiler::Diagnostics const& diagnostics = source.diagnostics();
  compiler::DiagnosticStyle const style = compiler::isColorWanted()
                                              ? compiler::DiagnosticStyle::colored
                                              : compiler::DiagnosticStyle::plain;
  std::string const text = compiler::printDiagnostics(diagnostics, style, "fdrec") +
                           compiler::printSummary(diagnostics, "fdrec");
  std::fwrite(text.data(), 1, text.size(), stderr);
  if (source.file() == nullptr) return kFailed;
  bool const isWarningAnError =
      hasWarningsAsErrors && diagnostics.countOf(compiler::Severity::warning) > 0;
  return diagnostics.hasErrors() || isWarningAnError ? kErrors : kClean;
}

void MapOptions::declare(CLI::App& app) {
  app.add_option("--directives", m_directives, "compiler directives, as fdmorph -D FILE has them")
      ->option_text("FILE");
  m_dialect = app.get_parent()->get_option("--dialect");
}

std::unique_ptr<DescribedSource> MapOptions::describe(std::string const& path,
                                                      CommonOptions const& options,
                                                      int& status) const {
  // The writers of fdmorph take text in the encoding of the locale.
  std::setlocale(LC_CTYPE, "C.UTF-8");
  compiler::Directives directives;
  static_cast<compiler::SourceOptions&>(directives) = options.source;
  // The sizes decide about slack bytes, which are items: those of fdmorph's compiler.
  if (m_dialect->count() == 0) directives.dialect = compiler::Dialect::gnuCobol;
  directives.choice.records = options.choice.names;
  directives.choice.section = sectionOf(options.choice.section);
  if (!m_directives.empty()) {
    std::optional<std::string> const text = readInput(m_directives);
    status = kFailed;
    if (!text) return nullptr;
    if (auto const wrong = compiler::applyDirectiveFile(*text, directives)) {
      printError("invalid directive " + *wrong + " in " + compiler::quoted(m_directives), "usage");
      status = kUsageError;
      return nullptr;
    }
  }
  auto described = std::make_unique<DescribedSource>(path, directives);
  compiler::Diagnostics& diagnostics = described->source.diagnostics();
  for (std::string const& each : directives.unknown) {
    diagnostics.report(compiler::Code::directive, {}, compiler::describeUnknown(each));
  }
  if (!diagnostics.hasErrors()) described->data.emplace(described->source, directives.choice);
  if (diagnostics.hasErrors()) described->data.reset();
  status = kClean;
  return described;
}

}  // namespace fdmorph::fdrec
