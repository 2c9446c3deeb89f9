#include "preprocess/text_words.h"

#include <array>

#include "text/letter_case.h"

namespace fdmorph::compiler {
namespace {

constexpr std::array<bool, 256> makeWordCharacters() {
  std::array<bool, 256> table{};
  for (std::size_t c = 0; c < table.size(); ++c) {
    char character = static_cast<char>(c);
    // Bytes of other alphabets count as letters.
    table[c] = isLetter(character) || isDigit(character) || character == '-' || character == '_' ||
               character == '#' || character == '@' || c >= 0x80;
  }
  return table;
}
constexpr std::array<bool, 256> kWordCharacters = makeWordCharacters();

bool isWordCharacter(char c) {
  return kWordCharacters[static_cast<unsigned char>(c)];
}

bool isQuote(char c) {
  return c == '"' || c == '\'';
}

// Control characters separate words as blanks do.
bool isBlank(char c) {
  return static_cast<unsigned char>(c) <= ' ' || c == '\x7F';
}

// As in X"41", N"text" and Z"text".
bool isLiteralPrefix(std::string_view word) {
  for (std::string_view each : {"X", "N", "Z", "H", "B", "G", "U", "NX", "BX", "GX"}) {
    if (equalsIgnoringCase(word, each)) return true;
  }
  return false;
}

}  // namespace

bool TextWord::isWord(std::string_view word) const {
  return kind == Kind::word && equalsIgnoringCase(text, word);
}

std::string describe(TextWord const& word) {
  return word.isEnd() ? "end of source" : quoted(word.text);
}

TextWord WordScanner::next() {
  TextWord word;
  std::size_t begin = m_at;
  word.isFirstOnLine = begin == 0;
  while (m_at < text().size() && isBlank(text()[m_at])) {
    if (text()[m_at++] != '\n') continue;
    word.isFirstOnLine = true;
    m_line = m_at;
  }
  word.isDebugging = word.isFirstOnLine && isDebugLine();
  word.precededBySpace = m_at != begin || begin == 0;
  word.place = {m_number, offsetOf(m_at)};
  if (m_at >= text().size()) return word;
  char c = text()[m_at];
  if (isDirective()) {
    word.kind = TextWord::Kind::directive;
    word.text = text().substr(m_at, c == '>' ? 2 : 1);
    m_at += word.text.size();
  } else if (isQuote(c)) {
    word.text = text().substr(m_at, 0);
    scanLiteral(word);
  } else if (isWordCharacter(c)) {
    scanWord(word);
  } else if (text().substr(m_at).starts_with("==")) {
    word.kind = TextWord::Kind::pseudo;
    word.text = text().substr(m_at, 2);
    m_at += 2;
  } else {
    word.kind = TextWord::Kind::symbol;
    word.text = text().substr(m_at, 1);
    ++m_at;
  }
  return word;
}

bool WordScanner::isDebugLine() {
  std::vector<std::uint32_t> const& all = m_source.debugLines;
  while (m_debugLine < all.size() && all[m_debugLine] < m_line) ++m_debugLine;
  return m_debugLine < all.size() && all[m_debugLine] == m_line;
}

bool WordScanner::isDirective() {
  std::vector<std::uint32_t> const& all = m_source.directives;
  while (m_directive < all.size() && all[m_directive] < m_at) ++m_directive;
  return m_directive < all.size() && all[m_directive] == m_at;
}

void WordScanner::scanWord(TextWord& word) {
  std::size_t begin = m_at;
  while (m_at < text().size() && isWordCharacter(text()[m_at])) ++m_at;
  word.kind = TextWord::Kind::word;
  word.text = text().substr(begin, m_at - begin);
  bool isPrefix = m_at < text().size() && isQuote(text()[m_at]) && isLiteralPrefix(word.text);
  if (isPrefix) scanLiteral(word);
}

// A literal ends at a quote that is not doubled, or at the end of its line.
void WordScanner::scanLiteral(TextWord& word) {
  std::size_t begin = m_at - word.text.size();
  char quote = text()[m_at++];
  word.kind = TextWord::Kind::literal;
  word.isOpen = true;
  while (m_at < text().size() && text()[m_at] != '\n') {
    if (text()[m_at++] != quote) continue;
    if (m_at >= text().size() || text()[m_at] != quote) {
      word.isOpen = false;
      break;
    }
    ++m_at;
  }
  word.text = text().substr(begin, m_at - begin);
}

bool WordScanner::isAtWord() const {
  return m_at < text().size() && isWordCharacter(text()[m_at]);
}

void WordScanner::skipLine() {
  m_at = text().find('\n', m_at);
  if (m_at == std::string_view::npos) m_at = text().size();
}

std::uint32_t WordScanner::offsetOf(std::size_t at) {
  // The offsets asked for ascend.
  while (m_piece + 1 < m_source.pieces.size() && m_source.pieces[m_piece + 1].at <= at) ++m_piece;
  if (m_source.pieces.empty()) return 0;
  SourceText::Piece const& piece = m_source.pieces[m_piece];
  return piece.offset + static_cast<std::uint32_t>(at - piece.at);
}

bool isCommentParagraph(std::string_view word) {
  for (std::string_view each : {"AUTHOR", "DATE-COMPILED", "DATE-WRITTEN", "INSTALLATION",
                                "OPTIONS", "REMARKS", "SECURITY"}) {
    if (equalsIgnoringCase(word, each)) return true;
  }
  return false;
}

}  // namespace fdmorph::compiler
