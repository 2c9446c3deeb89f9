#include "source/source_reader.h"

#include <algorithm>
#include <iterator>

#include "source/diagnostics.h"
#include "source/source_directives.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

// Tabs after this column are one blank wide, which bounds the growth of a line
// of tabs.
constexpr std::size_t kLastTabStop = 65536;

constexpr std::size_t kIndicator = 6;  // columns from 0
constexpr std::size_t kTextBegin = 7;
constexpr std::size_t kTextEnd = 72;

bool isQuote(char c) {
  return c == '"' || c == '\'';
}

/// One line of a file, with its tabs expanded.
class SourceLine {
 public:
  /// Takes the line that begins at `offset` of the file, and must outlive its
  /// use here. Ends the life of views of the line before.
  void set(std::string_view line, std::size_t offset, unsigned tabs);

  std::string_view text() const { return m_text; }
  std::size_t size() const { return m_text.size(); }
  char at(std::size_t column) const { return column < size() ? m_text[column] : ' '; }

  /// The offset in the file of a column, which counts from 0.
  std::uint32_t offsetOf(std::size_t column) const {
    if (!m_hasTabs) return static_cast<std::uint32_t>(m_offset + column);
    return column < m_offsets.size() ? m_offsets[column] : m_end;
  }

  /// Whether each column is one byte of the file.
  bool isPlain() const { return !m_hasTabs; }

 private:
  std::string_view m_text;
  std::size_t m_offset = 0;
  bool m_hasTabs = false;
  std::string m_expanded;
  std::vector<std::uint32_t> m_offsets;
  std::uint32_t m_end = 0;
};

void SourceLine::set(std::string_view line, std::size_t offset, unsigned tabs) {
  m_text = line;
  m_offset = offset;
  m_hasTabs = line.find('\t') != std::string_view::npos;
  if (!m_hasTabs) return;
  m_expanded.clear();
  m_offsets.clear();
  for (std::size_t i = 0; i < line.size(); ++i) {
    bool isStop = line[i] == '\t' && m_expanded.size() < kLastTabStop;
    std::size_t width = isStop ? tabs - m_expanded.size() % tabs : 1;
    m_expanded.append(width, line[i] == '\t' ? ' ' : line[i]);
    m_offsets.insert(m_offsets.end(), width, static_cast<std::uint32_t>(offset + i));
  }
  m_end = static_cast<std::uint32_t>(offset + line.size());
  m_text = m_expanded;
}

class Reader {
 public:
  explicit Reader(ReadingRules rules) : m_rules(rules) {}

  SourceText read(std::string_view content) {
    m_out.text.reserve(content.size() + 1);
    m_out.formats.push_back({0, m_rules.format});
    std::size_t at = content.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    while (at < content.size()) {
      std::size_t end = content.find('\n', at);
      if (end == std::string_view::npos) end = content.size();
      std::string_view line = content.substr(at, end - at);
      if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
      m_line.set(line, at, m_rules.tabs);
      readLine();
      at = end + 1;
    }
    startPiece(static_cast<std::uint32_t>(content.size()));
    m_out.text += '\n';
    return std::move(m_out);
  }

 private:
  void readLine() {
    std::string_view text = m_line.text();
    std::size_t begin = text.find_first_not_of(' ');
    if (begin == std::string_view::npos) return;
    if (text.substr(begin).starts_with("*>")) return;
    if (readDirective(begin)) return;
    // A sequence number may precede a directive.
    bool isNumbered = m_rules.format != Format::free && begin < kIndicator;
    std::size_t afterNumber = isNumbered ? text.find_first_not_of(' ', kIndicator) : begin;
    if (isNumbered && afterNumber != std::string_view::npos && readDirective(afterNumber)) return;
    if (m_rules.format == Format::free) {
      readFreeLine(begin);
    } else {
      readColumns();
    }
  }

  bool readDirective(std::size_t begin) {
    char mark = m_line.at(begin);
    if (mark != '>' && mark != '$') return false;
    std::optional<SourceDirective> directive = readSourceDirective(m_line.text().substr(begin));
    if (!directive) return false;
    if (directive->isConditional) {
      m_out.directives.push_back(static_cast<std::uint32_t>(m_out.text.size() + 1));
      addCode(begin, lineEnd(), 0, true);
    }
    if (directive->format) changeFormat(*directive->format);
    if (!directive->isKnown) reportDirective(begin);
    return true;
  }

  void reportDirective(std::size_t column) {
    report(Code::sourceDirective, column, "unknown directive is ignored");
  }

  void changeFormat(Format format) {
    m_rules.format = format;
    m_out.formats.push_back({m_line.offsetOf(m_line.size()), format});
  }

  // *CBL and *CONTROL control the listing.
  bool isListingControl() const {
    std::size_t begin = m_line.text().find_first_not_of(' ', kTextBegin);
    if (begin == std::string_view::npos || m_line.at(begin) != '*') return false;
    std::string_view word = m_line.text().substr(begin + 1);
    word = word.substr(0, word.find_first_of(" ."));
    return equalsIgnoringCase(word, "CBL") || equalsIgnoringCase(word, "CONTROL");
  }

  std::size_t lineEnd() const {
    bool isCut = m_rules.format == Format::fixed && m_line.size() > kTextEnd;
    return isCut ? kTextEnd : m_line.size();
  }

  void readFreeLine(std::size_t begin) {
    if (m_line.text().front() == '*' || m_line.text().front() == '/') return;
    if (m_isContinued && isQuote(m_line.at(begin))) {
      addCode(begin + 1, m_line.size(), m_line.at(begin), false);
    } else {
      addCode(0, m_line.size(), 0, true);
    }
    m_isContinued = false;
    cutContinuationMark();
  }

  // In free format a hyphen after the closing quote continues the literal.
  void cutContinuationMark() {
    std::string& text = m_out.text;
    if (m_openQuote != 0 || text.size() < 2 || text.back() != '-') return;
    if (!isQuote(text[text.size() - 2]) || m_lastQuote != text.size() - 2) return;
    text.resize(text.size() - 2);
    m_isContinued = true;
  }

  void readColumns() {
    char indicator = m_line.at(kIndicator);
    std::size_t end = lineEnd();
    if (indicator == ' ') {
      if (!isListingControl()) addCode(kTextBegin, end, 0, true);
    } else if (indicator == '-') {
      continueCode(end);
    } else if (indicator == '$') {
      reportDirective(kIndicator);
    } else if (toUpper(indicator) == 'D') {
      if (end <= kTextBegin) return;
      m_out.debugLines.push_back(static_cast<std::uint32_t>(m_out.text.size() + 1));
      addCode(kTextBegin, end, 0, true);
    } else if (isLetter(indicator)) {
      // A letter marks lines for other compilers.
      if (!m_out.excludedLine) m_out.excludedLine = m_line.offsetOf(kIndicator);
    } else if (indicator != '*' && indicator != '/') {
      std::string_view character = firstCharacters(m_line.text().substr(kIndicator), 1);
      report(Code::indicator, kIndicator,
             "unknown indicator " + quoted(character) + " in column 7");
    }
  }

  void continueCode(std::size_t end) {
    std::size_t begin = m_line.text().substr(0, end).find_first_not_of(' ', kTextBegin);
    if (begin == std::string_view::npos) return;
    bool isAtQuote = isQuote(m_line.at(begin));
    if (m_openQuote != 0 && isAtQuote) {
      padLiteral();
      addCode(begin + 1, end, m_openQuote, false);
    } else if (m_closedAtEdge != 0 && m_line.at(begin) == m_closedAtEdge) {
      // The quote in column 72 either begins a doubled quote or is the closing
      // quote of a literal that is continued.
      addCode(begin + 1, end, continuesPastQuote(begin) ? m_closedAtEdge : '\0', false);
    } else {
      trimEnd();
      // These are two literals, not a doubled quote.
      if (isAtQuote && !m_out.text.empty() && isQuote(m_out.text.back())) m_out.text += ' ';
      addCode(begin, end, 0, false);
    }
  }

  bool continuesPastQuote(std::size_t begin) {
    if (m_line.at(begin + 1) == m_closedAtEdge) return false;  // a doubled quote
    m_out.text.pop_back();
    return true;
  }

  // An open literal extends to column 72 of its line.
  void padLiteral() {
    if (m_rules.format == Format::fixed && m_lastEnd < kTextEnd) {
      m_out.text.append(kTextEnd - m_lastEnd, ' ');
    }
  }

  void trimEnd() {
    std::size_t last = m_out.text.find_last_not_of(' ');
    m_out.text.resize(last == std::string::npos ? 0 : last + 1);
  }

  // Appends the columns from `begin` up to `end` without a comment at their end.
  // `quote` is the delimiter of the literal that is open at `begin`, or 0.
  void addCode(std::size_t begin, std::size_t end, char quote, bool isNewLine) {
    if (begin >= end) return;
    std::size_t lastQuote = std::string::npos;
    std::size_t at = begin;
    for (; at < end; ++at) {
      char c = m_line.text()[at];
      if (quote != 0) {
        if (c == quote) {
          quote = 0;
          lastQuote = at;
        }
      } else if (isQuote(c)) {
        quote = c;
      } else if (c == '*' && at + 1 < end && m_line.text()[at + 1] == '>') {
        break;
      }
    }
    if (isNewLine) {
      startPiece(m_line.offsetOf(0));
      m_out.text += '\n';
    }
    std::size_t textEnd = at;
    if (quote == 0) {
      while (textEnd > begin && m_line.text()[textEnd - 1] == ' ') --textEnd;
    }
    std::size_t textBegin = m_out.text.size();
    appendColumns(begin, textEnd);
    m_openQuote = quote;
    m_lastEnd = at;
    m_lastQuote =
        lastQuote == std::string::npos ? std::string::npos : textBegin + (lastQuote - begin);
    m_closedAtEdge = lastQuote == kTextEnd - 1 ? m_line.text()[lastQuote] : '\0';
  }

  void appendColumns(std::size_t begin, std::size_t end) {
    if (m_line.isPlain()) {
      startPiece(m_line.offsetOf(begin));
      m_out.text.append(m_line.text(), begin, end - begin);
      return;
    }
    for (std::size_t at = begin; at < end; ++at) {
      // The place of a blank is never used.
      bool isBlank = m_line.text()[at] == ' ' && at > begin;
      if (!isBlank && !isInStep(m_line.offsetOf(at))) startPiece(m_line.offsetOf(at));
      m_out.text += m_line.text()[at];
    }
  }

  // Whether the next character of the text continues the last piece.
  bool isInStep(std::uint32_t offset) const {
    if (m_out.pieces.empty()) return false;
    SourceText::Piece const& last = m_out.pieces.back();
    return last.offset + (m_out.text.size() - last.at) == offset;
  }

  void startPiece(std::uint32_t offset) {
    m_out.pieces.push_back({static_cast<std::uint32_t>(m_out.text.size()), offset});
  }

  void report(Code code, std::size_t column, std::string message) {
    auto at = static_cast<std::uint32_t>(m_out.text.size());
    m_out.faults.push_back({at, m_line.offsetOf(column), code, std::move(message)});
  }

  ReadingRules m_rules;
  SourceLine m_line;
  SourceText m_out;
  // The state after the last line of code.
  char m_openQuote = 0;         // the delimiter of the literal that is open, or 0
  char m_closedAtEdge = 0;      // the delimiter of the literal closed in column 72, or 0
  std::size_t m_lastEnd = 0;    // the column where the line ended
  std::size_t m_lastQuote = 0;  // the last closing quote of the line, in the text
  bool m_isContinued = false;   // the line, in free format, ended in a continuation mark
};

}  // namespace

Format SourceText::formatAt(std::uint32_t offset) const {
  auto next = std::upper_bound(
      formats.begin(), formats.end(), offset,
      [](std::uint32_t wanted, FormatChange const& each) { return wanted < each.offset; });
  return std::prev(next)->format;
}

bool hasTextPastMargin(std::string_view line, unsigned tabs) {
  SourceLine expanded;
  expanded.set(line, 0, tabs);
  return expanded.text().find_first_not_of(' ', kTextEnd) != std::string_view::npos;
}

SourceText readSource(std::string_view content, ReadingRules rules) {
  return Reader(rules).read(content);
}

}  // namespace fdmorph::compiler
