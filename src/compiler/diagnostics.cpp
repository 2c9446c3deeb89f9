#include "compiler/diagnostics.h"

#include <algorithm>
#include <string_view>

namespace fdmorph::compiler {
namespace {

constexpr std::size_t kLongestLine = 160;  // characters shown of a source line
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
  ((out += line.path) += ':') += std::to_string(line.line);
  ((out += ':') += std::to_string(line.column)) += ": ";
}

}  // namespace

std::string quoted(std::string_view text) {
  if (text.size() > kLongestQuote) {
    return "'" + printable(text.substr(0, kLongestQuote)) + "...'";
  }
  return "'" + printable(text) + "'";
}

void Diagnostics::report(Code code, Place place, std::string text) {
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
  if (line.column <= kLongestLine) {
    ((out += "  ") += printable(line.text.substr(0, kLongestLine))) += '\n';
    (out.append(line.column + 1, ' ') += '^') += '\n';
  }
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
