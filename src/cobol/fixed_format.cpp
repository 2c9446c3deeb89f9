#include "cobol/fixed_format.h"

#include <algorithm>
#include <array>
#include <iostream>

#include "text/console.h"

namespace fdmorph {
namespace {

constexpr int kLastColumn = 72;
constexpr int kNothingYet = 73;             // column of a logical line without text
constexpr int kAreaA = 7;                   // offset of the first line's text
constexpr int kWrappedText = 10;            // offset of a wrapped line's text
constexpr int kMaxMargin = 61;              // leaves one column on a wrapped line
constexpr int kSafeMargin = 60;             // and one after a reopened quote
constexpr std::size_t kExpectedText = 256;  // bytes; saves growing in small steps
constexpr std::string_view kMovedPrefix = "          ";
constexpr std::string_view kCommentPrefix = "      *   ";
constexpr std::string_view kContinuedPrefix = "      -   ";

// The longest run of blanks that the layout takes as one token.
constexpr auto kBlanks = [] {
  std::array<char, 254> blanks{};
  blanks.fill(' ');
  return blanks;
}();

bool isDelimiter(char c) {
  return c == ' ' || c == '\t';
}

// The end of the run of delimiters, or of other characters, that begins at
// `at`.
std::size_t endOfRun(std::string_view line, std::size_t at, bool ofDelimiters) {
  while (at < line.size() && isDelimiter(line[at]) == ofDelimiters) ++at;
  return at;
}

}  // namespace

FixedFormatLayout::FixedFormatLayout(int margin, bool isComment)
    : m_margin(margin > kMaxMargin ? kSafeMargin : margin),
      m_isComment(isComment),
      m_column(kNothingYet) {
  m_text.reserve(kExpectedText);
}

void FixedFormatLayout::beginFirstLine() {
  int blanks = kAreaA + m_margin - (m_isComment ? 1 : 0);
  m_text.append(static_cast<std::size_t>(blanks), ' ');
  m_column = blanks;
}

void FixedFormatLayout::beginLine(std::string_view prefix, int margin) {
  m_text += '\n';
  m_text += prefix;
  m_text.append(static_cast<std::size_t>(margin), ' ');
  m_column = kWrappedText + margin;
}

void FixedFormatLayout::beginMovedLine() {
  beginLine(m_isComment ? kCommentPrefix : kMovedPrefix, m_margin);
}

void FixedFormatLayout::beginContinuedLine(bool isLiteral) {
  int margin = isLiteral ? std::min(m_margin, kSafeMargin) : m_margin;
  beginLine(m_isComment ? kCommentPrefix : kContinuedPrefix, margin);
  if (!isLiteral) return;
  m_text += '"';
  ++m_column;
}

void FixedFormatLayout::OutputCOBOLToken(std::string_view token) {
  auto const length = static_cast<int>(token.size());
  int at = 0;
  while (true) {
    if (at < length && (token[static_cast<std::size_t>(at)] == '\n' ||
                        token[static_cast<std::size_t>(at)] == '\r')) {
      return;
    }
    // The length of the whole token counts for its later pieces too, so each of
    // them begins a new line.
    if (length + m_column > kLastColumn) {
      if (m_column > kLastColumn) {
        beginFirstLine();
      } else if (at == 0) {
        beginMovedLine();
      } else {
        beginContinuedLine(token.front() == '"');
      }
    }
    int room = kLastColumn - m_column;
    int rest = length - at;
    m_text +=
        token.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(std::min(room, rest)));
    if (rest <= room) {
      m_column += rest;
      return;
    }
    at += room;
  }
}

void OutputFixedFormatCOBOL(std::string_view line, std::ostream& stream) {
  std::ostream& target = stream.bad() || stream.fail() ? std::cout : stream;
  std::size_t at = endOfRun(line, 0, true);
  std::size_t end = endOfRun(line, at, false);
  FixedFormatLayout layout(std::max(0, static_cast<int>(at) - kAreaA),
                           line.substr(at, end - at) == "*");
  layout.OutputCOBOLToken(line.substr(at, end - at));
  while ((at = endOfRun(line, end, true)) < line.size()) {
    for (std::size_t left = at - end; left > 0;) {
      std::size_t portion = std::min(left, kBlanks.size());
      layout.OutputCOBOLToken(std::string_view(kBlanks.data(), portion));
      left -= portion;
    }
    end = endOfRun(line, at, false);
    layout.OutputCOBOLToken(line.substr(at, end - at));
  }
  if (!target) return;
  beginOutput(target);
  target << layout.text();
  endLine(target);
}

}  // namespace fdmorph
