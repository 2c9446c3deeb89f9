#include "source/diagnostics.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "text/letter_case.h"
#include "text/utf8.h"

namespace fdmorph::compiler {
namespace {

constexpr std::array kCodes{
    CodeEntry{Code::file, "file", true},
    CodeEntry{Code::indicator, "indicator", true},
    CodeEntry{Code::literal, "literal", true},
    CodeEntry{Code::copySyntax, "copy-syntax", true},
    CodeEntry{Code::copyMissing, "copy-missing", true},
    CodeEntry{Code::copyCircle, "copy-circle", true},
    CodeEntry{Code::copyLimit, "copy-limit", true},
    CodeEntry{Code::replaceSyntax, "replace-syntax", true},
    CodeEntry{Code::execEnd, "exec-end", true},
    CodeEntry{Code::conditional, "conditional", true},
    CodeEntry{Code::syntax, "syntax", true},
    CodeEntry{Code::period, "period", true},
    CodeEntry{Code::level, "level", true},
    CodeEntry{Code::levelOrder, "level-order", true},
    CodeEntry{Code::name, "name", true},
    CodeEntry{Code::duplicateClause, "duplicate-clause", true},
    CodeEntry{Code::clause, "clause", true},
    CodeEntry{Code::picture, "picture", true},
    CodeEntry{Code::pictureMissing, "picture-missing", true},
    CodeEntry{Code::usage, "usage", true},
    CodeEntry{Code::redefines, "redefines", true},
    CodeEntry{Code::renames, "renames", true},
    CodeEntry{Code::occurs, "occurs", true},
    CodeEntry{Code::depending, "depending", true},
    CodeEntry{Code::value, "value", true},
    CodeEntry{Code::constant, "constant", true},
    CodeEntry{Code::size, "size", true},
    CodeEntry{Code::environment, "environment", true},
    CodeEntry{Code::directive, "directive", false},
    CodeEntry{Code::sourceDirective, "source-directive", false},
    CodeEntry{Code::leftOut, "left-out", false},
    CodeEntry{Code::tag, "tag", false},
    CodeEntry{Code::copyPassed, "copy-passed", false},
    CodeEntry{Code::duplicateName, "duplicate-name", false},
    CodeEntry{Code::valueSize, "value-size", false},
    CodeEntry{Code::valueLost, "value-lost", false},
    CodeEntry{Code::redefinesTable, "redefines-table", false},
    CodeEntry{Code::redefinesSize, "redefines-size", false},
    CodeEntry{Code::binarySize, "binary-size", false},
    CodeEntry{Code::pictureWarning, "picture-symbols", false},
    CodeEntry{Code::clauseWarning, "clause-ignored", false},
};

// The table is read by the code's number.
constexpr bool isInOrder() {
  for (std::size_t i = 0; i < kCodes.size(); ++i) {
    if (static_cast<std::size_t>(kCodes[i].code) != i) return false;
  }
  return true;
}
static_assert(isInOrder() && kCodes.size() == kCodeCount);

// Characters shown of a source line, and of these ahead of the caret where the
// beginning of the line is left out.
constexpr std::size_t kMaxLineLength = 160;
constexpr std::size_t kAheadOfCaret = 80;
constexpr std::string_view kLeftOut = "...";
constexpr std::size_t kMaxQuoteLength = 60;

bool isControl(char c) {
  return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

std::string printable(std::string_view text) {
  std::string result(text);
  std::replace_if(result.begin(), result.end(), isControl, ' ');
  return result;
}

void printPlace(LinePlace const& line, std::string& out) {
  ((out += printable(line.file)) += ':') += std::to_string(line.line);
  ((out += ':') += std::to_string(line.column)) += ": ";
}

// The text behind its first characters.
std::string_view behind(std::string_view text, std::size_t characters) {
  std::size_t at = 0;
  for (; at < text.size() && characters > 0; --characters) {
    do {
      ++at;
    } while (at < text.size() && isUtf8Continuation(text[at]));
  }
  return text.substr(at);
}

// The line, or the part of it around its column, and a caret below.
void printLine(LinePlace const& line, std::string& out) {
  std::size_t begin = line.column > kMaxLineLength ? line.column - 1 - kAheadOfCaret : 0;
  std::string_view ahead = begin > 0 ? kLeftOut : std::string_view();
  std::string_view shown = behind(line.text, begin);
  shown.remove_suffix(behind(shown, kMaxLineLength).size());
  (((out += "  ") += ahead) += printable(shown)) += '\n';
  (out.append(ahead.size() + line.column + 1 - begin, ' ') += '^') += '\n';
}

}  // namespace

CodeEntry const& entryOf(Code code) {
  return kCodes[static_cast<std::size_t>(code)];
}

CodeEntry const* codesBegin() {
  return kCodes.data();
}
CodeEntry const* codesEnd() {
  return kCodes.data() + kCodes.size();
}

std::string quoted(std::string_view text) {
  if (text.size() > kMaxQuoteLength) {
    return "'" + printable(text.substr(0, kMaxQuoteLength)) + "...'";
  }
  return "'" + printable(text) + "'";
}

void Diagnostics::report(Code code, Place place, std::string text) {
  ++m_counts[static_cast<std::size_t>(code)];
  m_places[static_cast<std::size_t>(code)] = place;
  std::size_t& count = entryOf(code).isError ? m_errors : m_warnings;
  if (++count <= kMaxReports) m_reports.push_back({code, place, std::move(text)});
}

void Diagnostics::printReport(Report const& report, std::string& out) const {
  CodeEntry const& entry = entryOf(report.code);
  LinePlace line;
  if (report.place.isKnown()) {
    line = m_sources.locate(report.place);
    printPlace(line, out);
  } else {
    out += "zbc: ";
  }
  (out += entry.isError ? "error: " : "warning: ") += report.text;
  ((out += " [") += entry.text) += "]\n";
  if (!report.place.isKnown()) return;
  printLine(line, out);
  Place place = m_sources.copiedFrom(report.place.text);
  for (; place.isKnown(); place = m_sources.copiedFrom(place.text)) {
    printPlace(m_sources.locate(place), out);
    out += "note: copied from here\n";
  }
}

std::string Diagnostics::print() const {
  std::vector<Report const*> sorted;
  for (Report const& each : m_reports) sorted.push_back(&each);
  std::stable_sort(sorted.begin(), sorted.end(), [this](Report const* left, Report const* right) {
    return m_sources.isBefore(left->place, right->place);
  });
  std::string out;
  for (Report const* each : sorted) printReport(*each, out);
  if (m_errors > kMaxReports) {
    out += "zbc: " + std::to_string(m_errors - kMaxReports) + " more errors are not shown\n";
  }
  if (m_warnings > kMaxReports) {
    out += "zbc: " + std::to_string(m_warnings - kMaxReports) + " more warnings are not shown\n";
  }
  return out;
}

}  // namespace fdmorph::compiler
