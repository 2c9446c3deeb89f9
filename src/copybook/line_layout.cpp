#include "copybook/line_layout.h"

#include <algorithm>

#include "source/diagnostics.h"
#include "text/letter_case.h"
#include "text/utf8.h"

namespace fdmorph::copybook {
namespace {

constexpr std::size_t kFixedWidth = 65;  // columns 8 to 72
constexpr std::size_t kFreeWidth = 80;
constexpr std::size_t kAreaB = 4;  // columns after column 8
constexpr std::size_t kStep = 2;
constexpr std::size_t kMaxIndent = 32;
constexpr std::size_t kLeastPiece = 16;  // of a literal at the end of a line

constexpr std::string_view kFixedMargin = "       ";
constexpr std::string_view kContinuedMargin = "      -";
constexpr std::string_view kFixedComment = "      * ";
constexpr std::string_view kFreeComment = "*> ";
constexpr std::size_t kCommentWidth = 72;  // bytes of a line
constexpr std::string_view kJoin = " &";

constexpr std::size_t widthOf(LineForm form) {
  return form == LineForm::fixed ? kFixedWidth : kFreeWidth;
}

constexpr std::size_t indentOf(std::size_t depth) {
  return depth == 0 ? 0 : std::min(kAreaB + (depth - 1) * kStep, kMaxIndent);
}

// The last place, up to `at`, where a text can be cut without dividing a character.
// A text that is not UTF-8 is cut anywhere.
std::size_t endOfCharacter(std::string_view text, std::size_t at) {
  constexpr std::size_t kLongest = 4;
  std::size_t end = std::min(at, text.size());
  for (std::size_t i = 0; i < kLongest && end > i; ++i) {
    if (end - i == text.size() || !isUtf8Continuation(text[end - i])) return end - i;
  }
  return end;
}

bool isQuote(char c) {
  return c == '"' || c == '\'';
}

// Whether a literal can be continued on the next line after so many bytes. Beside a
// quote that would be read in different ways.
bool isContinuableAt(std::string_view literal, std::size_t at) {
  return !isQuote(literal[at - 1]) && !isQuote(literal[at]) && !isUtf8Continuation(literal[at]);
}

// The digits of one character of a hexadecimal literal; 1 for other literals.
std::size_t unitOf(std::string_view head) {
  if (toUpper(head.front()) == 'X') return 2;
  bool isNational = head.size() > 2 && toUpper(head[1]) == 'X';
  return isNational ? 4 : 1;
}

// Where the content of a literal, which begins at `begin`, can be cut in two, up to
// `at`. Doubled quotes and characters are not divided.
std::size_t endOfPart(std::string_view literal, std::size_t begin, std::size_t at) {
  std::string_view content = literal.substr(begin);
  std::size_t end = endOfCharacter(content, at - begin);
  end -= end % unitOf(literal.substr(0, begin));
  std::size_t quotes = 0;
  while (quotes < end && content[end - 1 - quotes] == literal[begin - 1]) ++quotes;
  return begin + end - quotes % 2;
}

}  // namespace

std::size_t LineLayout::room() const {
  std::size_t width = widthOf(m_form);
  return m_column < width ? width - m_column : 0;
}

void LineLayout::append(std::string_view text) {
  m_text += text;
  m_column += text.size();
}

void LineLayout::continueLine() {
  m_text += kContinuedMargin;
  m_text.append(kAreaB, ' ');
  m_column = kAreaB;
}

void LineLayout::beginLine(std::size_t indent) {
  if (m_form == LineForm::fixed) m_text += kFixedMargin;
  m_text.append(indent, ' ');
  m_column = indent;
  m_hasWord = false;
}

void LineLayout::endLine() {
  m_text += '\n';
}

void LineLayout::addEntry(std::size_t depth, std::vector<Word>& words) {
  words.back().text += '.';
  std::size_t indent = indentOf(depth);
  m_indent = std::max(indent, kAreaB) + kAreaB;
  beginLine(indent);
  for (Word const& each : words) addWord(each);
  endLine();
}

void LineLayout::addWord(Word const& word) {
  std::size_t length = word.text.size();
  if (m_hasWord && length + 1 <= room()) {
    append(" ");
  } else if (m_hasWord) {
    std::size_t width = widthOf(m_form);
    bool isLong = length > width - m_indent;
    if (word.isLiteral && isLong && length > width - kAreaB) {
      addLiteral(word.text);
      return;
    }
    // A long word begins further left.
    std::size_t indent = !isLong ? m_indent : length <= width ? width - length : 0;
    endLine();
    beginLine(indent);
  }
  m_hasWord = true;
  addLongWord(word.text);
}

// A literal that is longer than a line.
void LineLayout::addLiteral(std::string_view literal) {
  if (room() < kLeastPiece) {
    endLine();
    beginLine(m_indent);
  } else {
    append(" ");
  }
  std::size_t begin = literal.find_first_of("\"'") + 1;
  std::string_view head = literal.substr(0, begin);
  std::string_view mark = head.substr(begin - 1);
  std::size_t at = begin;
  append(head);
  while (literal.size() - at > room()) {
    std::size_t end = at + room();
    if (m_form == LineForm::fixed && isContinuableAt(literal, end)) {
      append(literal.substr(at, end - at));
      endLine();
      continueLine();
      append(mark);
    } else {
      end = endOfPart(literal, begin, end - mark.size() - kJoin.size());
      append(literal.substr(at, end - at));
      append(mark);
      append(kJoin);
      endLine();
      beginLine(m_indent);
      append(head);
    }
    at = end;
  }
  append(literal.substr(at));
  m_hasWord = true;
}

void LineLayout::addLongWord(std::string_view word) {
  while (m_form == LineForm::fixed && word.size() > room()) {
    std::size_t end = room();
    append(word.substr(0, end));
    word.remove_prefix(end);
    endLine();
    continueLine();
  }
  append(word);
}

void LineLayout::addComment(std::string_view text) {
  std::size_t end = 0;
  do {
    end = std::min(text.find('\n'), text.size());
    addCommentLines(compiler::printable(text.substr(0, end)));
    text.remove_prefix(std::min(end + 1, text.size()));
  } while (!text.empty());
}

// Breaks the text at blanks where it has some.
void LineLayout::addCommentLines(std::string_view text) {
  std::string_view margin = m_form == LineForm::fixed ? kFixedComment : kFreeComment;
  std::size_t width = kCommentWidth - margin.size();
  do {
    std::size_t end = text.size();
    if (end > width) {
      std::size_t blank = text.rfind(' ', width);
      bool isWord = blank == std::string_view::npos || blank == 0;
      end = isWord ? endOfCharacter(text, width) : blank;
    }
    std::size_t length = text.substr(0, end).find_last_not_of(' ') + 1;  // npos + 1 is 0
    m_text += margin;
    m_text += text.substr(0, length);
    while (m_text.back() == ' ') m_text.pop_back();
    m_text += '\n';
    text.remove_prefix(std::min(text.find_first_not_of(' ', end), text.size()));
  } while (!text.empty());
}

}  // namespace fdmorph::copybook
