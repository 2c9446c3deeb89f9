#include "frontend/compiled_source.h"

#include "frontend/format_hint.h"
#include "semantics/checker.h"
#include "syntax/lexer.h"
#include "syntax/parser.h"

namespace fdmorph::compiler {

CompiledSource::CompiledSource(std::string const& path, SourceOptions const& options,
                               FileTree& tree, std::string const& name)
    : m_sources(tree),
      m_diagnostics(m_sources),
      m_file(m_sources.file(path, name)),
      m_search(m_sources, options.copying, path),
      m_context{m_sources, m_diagnostics, m_search, m_pool, options.reading} {
  if (m_file == nullptr) {
    std::string const& shown = name.empty() ? path : name;
    m_diagnostics.report(Code::file, {},
                         "cannot read " + quoted(shown) + ": " + whyUnreadable(path));
    return;
  }
  compile(path, options);
}

void CompiledSource::compile(std::string const& path, SourceOptions const& options) {
  m_context.warnsOfMissingCopies = options.warnsOfMissingCopies;
  FileText text(m_context, m_file, {});
  ReplaceStatements replaced(text, m_pool, m_context.budget, m_diagnostics);
  Lexer lexer(replaced, m_pool);
  m_data.programName = baseName(path);
  m_data.sizes = options.dialect;
  m_data.sizes.binary = options.binarySize.value_or(options.dialect);
  Parser(lexer, m_pool, m_context.variables, m_diagnostics, m_data, [this](Place place) {
    return m_context.hasTextPastMargin(place);
  }).parse();
  Checker(m_data, m_diagnostics).check();
  bool isEmptyCopybook = !m_diagnostics.hasErrors() && !m_data.isProgram && m_data.isEmpty();
  if (isEmptyCopybook && m_context.excludedLine.isKnown()) {
    m_diagnostics.report(
        Code::leftOut, m_context.excludedLine,
        "lines with a letter in column 7 are ignored, and the others have no data");
  }
  noteFormat(options.reading.format);
}

// The format of the options applies up to a directive in the source.
void CompiledSource::noteFormat(Format format) {
  if (!m_diagnostics.hasErrors() && !m_data.isEmpty()) return;
  constexpr std::uint32_t kMainText = 1;
  if (std::optional<FormatHint> hint = findFormatHint(m_file->content, format)) {
    m_diagnostics.report(Code::format, {kMainText, static_cast<std::uint32_t>(hint->offset)},
                         std::string(hint->text));
  }
}

std::string_view baseName(std::string_view path) {
  std::string_view name = path.substr(path.rfind('/') + 1);  // npos + 1 is 0
  std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos || dot == 0 ? name : name.substr(0, dot);
}

}  // namespace fdmorph::compiler
