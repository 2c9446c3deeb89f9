#include "source/diagnostics.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "text/utf8.h"

namespace fdmorph::compiler {
namespace {

constexpr std::array kCodes{
    CodeEntry{Code::file, "file", Severity::error},
    CodeEntry{Code::indicator, "indicator", Severity::error},
    CodeEntry{Code::literal, "literal", Severity::error},
    CodeEntry{Code::copySyntax, "copy-syntax", Severity::error},
    CodeEntry{Code::copyMissing, "copy-missing", Severity::error},
    CodeEntry{Code::copyCircle, "copy-circle", Severity::error},
    CodeEntry{Code::copyLimit, "copy-limit", Severity::error},
    CodeEntry{Code::replaceSyntax, "replace-syntax", Severity::error},
    CodeEntry{Code::execEnd, "exec-end", Severity::error},
    CodeEntry{Code::conditional, "conditional", Severity::error},
    CodeEntry{Code::syntax, "syntax", Severity::error},
    CodeEntry{Code::period, "period", Severity::error},
    CodeEntry{Code::level, "level", Severity::error},
    CodeEntry{Code::levelOrder, "level-order", Severity::error},
    CodeEntry{Code::name, "name", Severity::error},
    CodeEntry{Code::duplicateClause, "duplicate-clause", Severity::error},
    CodeEntry{Code::clause, "clause", Severity::error},
    CodeEntry{Code::picture, "picture", Severity::error},
    CodeEntry{Code::pictureMissing, "picture-missing", Severity::error},
    CodeEntry{Code::usage, "usage", Severity::error},
    CodeEntry{Code::redefines, "redefines", Severity::error},
    CodeEntry{Code::renames, "renames", Severity::error},
    CodeEntry{Code::occurs, "occurs", Severity::error},
    CodeEntry{Code::depending, "depending", Severity::error},
    CodeEntry{Code::value, "value", Severity::error},
    CodeEntry{Code::constant, "constant", Severity::error},
    CodeEntry{Code::xmlClause, "xml-clause", Severity::error},
    CodeEntry{Code::size, "size", Severity::error},
    CodeEntry{Code::environment, "environment", Severity::error},
    CodeEntry{Code::noData, "no-data", Severity::error},
    CodeEntry{Code::choice, "choice", Severity::error},
    CodeEntry{Code::layout, "layout", Severity::error},
    CodeEntry{Code::directive, "directive", Severity::warning},
    CodeEntry{Code::sourceDirective, "source-directive", Severity::warning},
    CodeEntry{Code::leftOut, "left-out", Severity::warning},
    CodeEntry{Code::tag, "tag", Severity::warning},
    CodeEntry{Code::copyPassed, "copy-passed", Severity::warning},
    CodeEntry{Code::duplicateName, "duplicate-name", Severity::warning},
    CodeEntry{Code::valueSize, "value-size", Severity::warning},
    CodeEntry{Code::valueLost, "value-lost", Severity::warning},
    CodeEntry{Code::redefinesTable, "redefines-table", Severity::warning},
    CodeEntry{Code::redefinesSize, "redefines-size", Severity::warning},
    CodeEntry{Code::binarySize, "binary-size", Severity::warning},
    CodeEntry{Code::pictureWarning, "picture-symbols", Severity::warning},
    CodeEntry{Code::clauseWarning, "clause-ignored", Severity::warning},
    CodeEntry{Code::prefix, "prefix", Severity::warning},
    CodeEntry{Code::copyPassedOver, "copy-passed-over", Severity::warning},
    CodeEntry{Code::lostRecords, "lost-records", Severity::warning},
    CodeEntry{Code::lostConditions, "lost-conditions", Severity::warning},
    CodeEntry{Code::lostRedefinitions, "lost-redefinitions", Severity::warning},
    CodeEntry{Code::longNumber, "long-number", Severity::warning},
    CodeEntry{Code::xmlName, "xml-name", Severity::warning},
    CodeEntry{Code::plainName, "cobol-name", Severity::warning},
    CodeEntry{Code::plainArea, "redefines-area", Severity::warning},
    CodeEntry{Code::emptyItem, "empty-item", Severity::warning},
    CodeEntry{Code::complexTable, "complex-table", Severity::warning},
    CodeEntry{Code::nativeSize, "native-size", Severity::warning},
    CodeEntry{Code::viewLeftOut, "view-left-out", Severity::note},
    CodeEntry{Code::format, "format", Severity::note},
};

// A code is the index of its entry.
constexpr bool isInOrder() {
  for (std::size_t i = 0; i < kCodes.size(); ++i) {
    if (static_cast<std::size_t>(kCodes[i].code) != i) return false;
  }
  return true;
}
static_assert(isInOrder() && kCodes.size() == kCodeCount);

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
  std::size_t& count = m_severities[static_cast<std::size_t>(entryOf(code).severity)];
  if (++count <= kMaxReports) m_reports.push_back({code, place, std::move(text)});
}

std::vector<Diagnostics::Report const*> Diagnostics::inSourceOrder() const {
  std::vector<Report const*> sorted;
  for (Report const& each : m_reports) sorted.push_back(&each);
  std::stable_sort(sorted.begin(), sorted.end(), [this](Report const* left, Report const* right) {
    return m_sources.isBefore(left->place, right->place);
  });
  return sorted;
}

}  // namespace fdmorph::compiler
