#include "source/diagnostic_output.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string_view>

#include "source/source_files.h"

namespace fdmorph::compiler {
namespace {

using Json = nlohmann::ordered_json;

// In characters: what is shown of a source line, and how much of that precedes
// the caret where the beginning of the line is left out.
constexpr std::size_t kMaxLineLength = 160;
constexpr std::size_t kLengthBeforeCaret = 80;
constexpr std::string_view kEllipsis = "...";

// Of ECMA-48: bold, with the color of the severity, and the end of both.
constexpr std::string_view kBold = "\x1b[1m";
constexpr std::string_view kPlain = "\x1b[0m";

constexpr std::string_view colorOf(Severity severity) {
  switch (severity) {
    case Severity::error:
      return "\x1b[1;31m";
    case Severity::warning:
      return "\x1b[1;35m";
    case Severity::note:
      break;
  }
  return "\x1b[1;36m";
}

void printPlace(LinePlace const& place, std::string& out) {
  out += printable(place.file);
  (out += ':') += std::to_string(place.line);
  ((out += ':') += std::to_string(place.column)) += ": ";
}

// Prints the line, or the part of it around the column, and a caret below.
void printLine(LinePlace const& place, std::string& out) {
  bool isCut = place.column > kMaxLineLength;
  std::size_t begin = isCut ? place.column - 1 - kLengthBeforeCaret : 0;
  std::string_view ellipsis = isCut ? kEllipsis : std::string_view();
  std::string_view shown = place.text;
  shown.remove_prefix(firstCharacters(shown, begin).size());
  (out += "  ") += ellipsis;
  out += printable(firstCharacters(shown, kMaxLineLength));
  out += '\n';
  (out.append(ellipsis.size() + place.column + 1 - begin, ' ') += '^') += '\n';
}

constexpr std::string_view nameOf(Severity severity) {
  switch (severity) {
    case Severity::error:
      return "error";
    case Severity::warning:
      return "warning";
    case Severity::note:
      break;
  }
  return "note";
}

// "1 error", "2 errors"
std::string counted(std::size_t count, Severity severity) {
  return std::to_string(count) + " " + std::string(nameOf(severity)) + (count == 1 ? "" : "s");
}

/// Prints reports as text.
class TextPrinter {
 public:
  TextPrinter(Sources const& sources, bool isColored, std::string_view program)
      : m_sources(sources), m_isColored(isColored), m_program(program) {}

  void print(Diagnostics::Report const& report) {
    CodeEntry const& entry = entryOf(report.code);
    LinePlace place;
    color(kBold);
    if (report.place.isKnown()) {
      place = m_sources.locate(report.place);
      printPlace(place, m_out);
    } else {
      (m_out += m_program) += ": ";
    }
    color(colorOf(entry.severity));
    (m_out += nameOf(entry.severity)) += ": ";
    color(kPlain);
    m_out += printable(report.text);
    ((m_out += " [") += entry.name) += "]\n";
    if (!report.place.isKnown()) return;
    printLine(place, m_out);
    Place copy = m_sources.copiedFrom(report.place.text);
    for (; copy.isKnown(); copy = m_sources.copiedFrom(copy.text)) {
      printPlace(m_sources.locate(copy), m_out);
      m_out += "note: copied from here\n";
    }
  }

  std::string release() { return std::move(m_out); }

 private:
  void color(std::string_view code) {
    if (m_isColored) m_out += code;
  }

  Sources const& m_sources;
  bool m_isColored;
  std::string_view m_program;
  std::string m_out;
};

std::string describeHidden(Diagnostics const& diagnostics, std::string_view program) {
  std::string out;
  for (Severity each : {Severity::error, Severity::warning, Severity::note}) {
    std::size_t count = diagnostics.countOf(each);
    if (count <= Diagnostics::kMaxReports) continue;
    std::size_t hidden = count - Diagnostics::kMaxReports;
    (out += program) += ": " + std::to_string(hidden) + " more " + std::string(nameOf(each)) +
                        (hidden == 1 ? " is" : "s are") + " not shown\n";
  }
  return out;
}

// The characters of the word or literal that begins `text`.
std::size_t wordLength(std::string_view text) {
  if (text.empty()) return 0;
  bool isLiteral = text.front() == '"' || text.front() == '\'';
  if (isLiteral) {
    std::size_t end = text.find(text.front(), 1);
    return countCharacters(text.substr(0, end == std::string_view::npos ? end : end + 1));
  }
  std::string_view word = text.substr(0, text.find_first_of(" \t,;"));
  if (word.size() > 1 && word.back() == '.') word.remove_suffix(1);
  return std::max<std::size_t>(countCharacters(word), 1);
}

Json placeOf(LinePlace const& place) {
  return {{"file", printable(place.file)}, {"line", place.line}, {"column", place.column}};
}

std::string printJson(Diagnostics::Report const& report, Sources const& sources) {
  CodeEntry const& entry = entryOf(report.code);
  Json object = Json::object();
  Json copies = Json::array();
  if (report.place.isKnown()) {
    LinePlace place = sources.locate(report.place);
    object = placeOf(place);
    std::string_view rest = place.text;
    rest.remove_prefix(firstCharacters(rest, place.column - 1).size());
    object["end"] = place.column + wordLength(rest);
    Place copy = sources.copiedFrom(report.place.text);
    for (; copy.isKnown(); copy = sources.copiedFrom(copy.text)) {
      copies.push_back(placeOf(sources.locate(copy)));
    }
  }
  object["severity"] = nameOf(entry.severity);
  object["code"] = entry.name;
  object["message"] = printable(report.text);
  object["copiedFrom"] = std::move(copies);
  return object.dump() + "\n";
}

}  // namespace

std::string printDiagnostics(Diagnostics const& diagnostics, DiagnosticStyle style,
                             std::string_view program) {
  if (style == DiagnosticStyle::jsonLines) {
    std::string out;
    for (Diagnostics::Report const* each : diagnostics.inSourceOrder()) {
      out += printJson(*each, diagnostics.sources());
    }
    return out;
  }
  TextPrinter printer(diagnostics.sources(), style == DiagnosticStyle::colored, program);
  for (Diagnostics::Report const* each : diagnostics.inSourceOrder()) printer.print(*each);
  return printer.release() + describeHidden(diagnostics, program);
}

std::string printSummary(Diagnostics const& diagnostics, std::string_view program) {
  std::size_t errors = diagnostics.countOf(Severity::error);
  std::size_t warnings = diagnostics.countOf(Severity::warning);
  if (errors + warnings == 0) return {};
  return std::string(program) + ": " + counted(errors, Severity::error) + ", " +
         counted(warnings, Severity::warning) + "\n";
}

bool isColorWanted() {
  auto valueOf = [](char const* name) {
    char const* value = std::getenv(name);
    return std::string_view(value == nullptr ? "" : value);
  };
  return ::isatty(STDERR_FILENO) == 1 && valueOf("NO_COLOR").empty() && valueOf("TERM") != "dumb";
}

}  // namespace fdmorph::compiler
