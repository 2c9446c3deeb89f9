#include "compiler/diagnostics.h"

#include <algorithm>
#include <string_view>

#include "compiler/letters.h"

namespace fdmorph::compiler {
namespace {

// Characters shown of a source line, and of these ahead of the caret where the
// beginning of the line is left out.
constexpr std::size_t kLongestLine = 160;
constexpr std::size_t kAheadOfCaret = 80;
constexpr std::string_view kLeftOut = "...";
constexpr std::size_t kLongestQuote = 60;

bool isControl(char c) {
  return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

std::string printable(std::string_view text) {
  std::string result(text);
  std::replace_if(result.begin(), result.end(), isControl, ' ');
  return result;
}

void printPlace(LinePlace const& line, std::string& out) {
  ((out += printable(line.path)) += ':') += std::to_string(line.line);
  ((out += ':') += std::to_string(line.column)) += ": ";
}

// The text behind its first characters.
std::string_view behind(std::string_view text, std::size_t characters) {
  std::size_t at = 0;
  for (; at < text.size() && characters > 0; --characters) {
    do {
      ++at;
    } while (at < text.size() && isFollowingByte(text[at]));
  }
  return text.substr(at);
}

// The line, or the part of it around its column, and a caret below.
void printLine(LinePlace const& line, std::string& out) {
  std::size_t begin = line.column > kLongestLine ? line.column - 1 - kAheadOfCaret : 0;
  std::string_view ahead = begin > 0 ? kLeftOut : std::string_view();
  std::string_view shown = behind(line.text, begin);
  shown.remove_suffix(behind(shown, kLongestLine).size());
  (((out += "  ") += ahead) += printable(shown)) += '\n';
  (out.append(ahead.size() + line.column + 1 - begin, ' ') += '^') += '\n';
}

}  // namespace

std::string quoted(std::string_view text) {
  if (text.size() > kLongestQuote) {
    return "'" + printable(text.substr(0, kLongestQuote)) + "...'";
  }
  return "'" + printable(text) + "'";
}

void Diagnostics::report(Code code, Place place, std::string text) {
  ++m_counts[static_cast<std::size_t>(code)];
  m_places[static_cast<std::size_t>(code)] = place;
  std::size_t& count = entryOf(code).isError ? m_errors : m_warnings;
  if (++count <= kMost) m_reports.push_back({code, place, std::move(text)});
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
  if (m_errors > kMost) {
    out += "zbc: " + std::to_string(m_errors - kMost) + " more errors are not shown\n";
  }
  if (m_warnings > kMost) {
    out += "zbc: " + std::to_string(m_warnings - kMost) + " more warnings are not shown\n";
  }
  return out;
}

}  // namespace fdmorph::compiler
