#include "source/diagnostics.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

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
    CodeEntry{Code::xmlClause, "xml-clause", true},
    CodeEntry{Code::size, "size", true},
    CodeEntry{Code::environment, "environment", true},
    CodeEntry{Code::noData, "no-data", true},
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
    CodeEntry{Code::prefix, "prefix", false},
};

// A code is the index of its entry.
constexpr bool isInOrder() {
  for (std::size_t i = 0; i < kCodes.size(); ++i) {
    if (static_cast<std::size_t>(kCodes[i].code) != i) return false;
  }
  return true;
}
static_assert(isInOrder() && kCodes.size() == kCodeCount);

// In characters: what is shown of a source line, and how much of that precedes
// the caret where the beginning of the line is left out.
constexpr std::size_t kMaxLineLength = 160;
constexpr std::size_t kLengthBeforeCaret = 80;
constexpr std::string_view kEllipsis = "...";
constexpr std::size_t kMaxQuoteLength = 60;

constexpr char kReplacement = '?';

// Whether a terminal may obey a character: those of ASCII, delete, and the C1
// characters U+0080 to U+009F (ECMA-48).
bool isControl(std::string_view character) {
  auto first = static_cast<unsigned char>(character.front());
  if (character.size() == 1) return first < ' ' || first == 0x7F;
  return first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0;
}

void appendPrintable(std::string& out, std::string_view text) {
  while (!text.empty()) {
    std::size_t length = utf8Length(text);
    std::string_view character = text.substr(0, length);
    if (text.front() == '\t') {
      out += ' ';
    } else if (length == 0 || isControl(character)) {
      out += kReplacement;
    } else {
      out += character;
    }
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
}

void printPlace(LinePlace const& place, std::string& out) {
  appendPrintable(out, place.file);
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
  appendPrintable(out, firstCharacters(shown, kMaxLineLength));
  out += '\n';
  (out.append(ellipsis.size() + place.column + 1 - begin, ' ') += '^') += '\n';
}

}  // namespace

CodeEntry const& entryOf(Code code) {
  return kCodes[static_cast<std::size_t>(code)];
}

std::span<CodeEntry const> allCodes() {
  return kCodes;
}

std::string quoted(std::string_view text) {
  std::string_view shown = firstCharacters(text, kMaxQuoteLength);
  std::string result = "'";
  appendPrintable(result, shown);
  if (shown.size() < text.size()) result += kEllipsis;
  return result += '\'';
}

std::string printable(std::string_view text) {
  std::string result;
  appendPrintable(result, text);
  return result;
}

void Diagnostics::report(Code code, Place place, std::string text) {
  ++m_counts[static_cast<std::size_t>(code)];
  m_places[static_cast<std::size_t>(code)] = place;
  std::size_t& count = entryOf(code).isError ? m_errors : m_warnings;
  if (++count <= kMaxReports) m_reports.push_back({code, place, std::move(text)});
}

void Diagnostics::printReport(Report const& report, std::string& out) const {
  CodeEntry const& entry = entryOf(report.code);
  LinePlace place;
  if (report.place.isKnown()) {
    place = m_sources.locate(report.place);
    printPlace(place, out);
  } else {
    out += "zbc: ";
  }
  out += entry.isError ? "error: " : "warning: ";
  appendPrintable(out, report.text);
  ((out += " [") += entry.name) += "]\n";
  if (!report.place.isKnown()) return;
  printLine(place, out);
  Place copy = m_sources.copiedFrom(report.place.text);
  for (; copy.isKnown(); copy = m_sources.copiedFrom(copy.text)) {
    printPlace(m_sources.locate(copy), out);
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
