#include "document/json_scanner.h"

#include <array>
#include <cstring>

#include "text/utf8.h"

namespace fdmorph::document {
namespace {

constexpr std::uint64_t kHighBits = 0x8080808080808080U;

constexpr bool isHighSurrogate(unsigned code) {
  return code >= 0xD800 && code < 0xDC00;
}
constexpr bool isLowSurrogate(unsigned code) {
  return code >= 0xDC00 && code < 0xE000;
}

/// Bytes in strings that stand for themselves: no quote, backslash or control character.
constexpr std::array<bool, 256> kIsPlain = [] {
  std::array<bool, 256> isPlain{};
  for (unsigned i = 0x20; i < 256; ++i) isPlain[i] = i != '"' && i != '\\';
  return isPlain;
}();

/// The letters of escapes of one letter, and what they stand for.
constexpr std::string_view kLetters = "\"\\/bfnrt";
constexpr std::string_view kCharacters = "\"\\/\b\f\n\r\t";

/// The bytes of a pair of surrogates.
constexpr std::size_t kMaxEscape = 12;

void appendUnicodeEscape(std::string& out, unsigned code) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  out += "\\u";
  for (unsigned shift : {12U, 8U, 4U, 0U}) out += kDigits[(code >> shift) & 0xFU];
}

}  // namespace

std::size_t findMalformedUtf8(std::string_view text) {
  std::size_t at = 0;
  auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  while (at < text.size()) {
    std::uint64_t word = 0;
    if (text.size() - at >= sizeof word) {
      std::memcpy(&word, text.data() + at, sizeof word);
      if ((word & kHighBits) == 0) {
        at += sizeof word;
        continue;
      }
    }
    unsigned char first = byte(at++);
    if (first < 0x80) continue;
    if (first < 0xC2 || first > 0xF4) return at - 1;
    // Some first bytes narrow the second: no overlong forms, surrogates, or beyond U+10FFFF.
    unsigned char least = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    unsigned char most = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    for (int more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3; more > 0; --more, ++at) {
      if (at == text.size() || byte(at) < least || byte(at) > most) return at;
      least = 0x80;
      most = 0xBF;
    }
  }
  return std::string_view::npos;
}

void appendJsonEscaped(std::string& out, std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto byte = static_cast<unsigned char>(text[i]);
    std::size_t letter = byte == '/' ? std::string_view::npos : kCharacters.find(text[i]);
    if (letter != std::string_view::npos) {
      out += '\\';
      out += kLetters[letter];
    } else if (byte < 0x20) {
      appendUnicodeEscape(out, byte);
    } else if (byte == 0xED && static_cast<unsigned char>(text[i + 1]) >= 0xA0) {
      auto low = [&](std::size_t at) { return static_cast<unsigned char>(text[at]) & 0x3FU; };
      appendUnicodeEscape(out, 0xD000U | (low(i + 1) << 6U) | low(i + 2));
      i += 2;
    } else {
      out += text[i];
    }
  }
}

char JsonScanner::passBlanks() {
  do {
    while (m_at < m_text.size()) {
      char c = m_text[m_at];
      if (c != ' ' && c != '\t' && c != '\r' && c != '\n') return c;
      ++m_at;
    }
  } while (hasMore());
  return '\0';
}

// Drops the piece up to the next byte, and takes more of the text.
bool JsonScanner::hasMore() {
  if (m_source == nullptr) return false;
  std::size_t const left = m_text.size() - m_at;
  std::optional<std::string_view> const piece = m_source->next(m_at);
  if (!piece) return false;
  m_text = *piece;
  m_before += m_at;
  m_at = 0;
  return m_text.size() > left;
}

// Has so many bytes in the piece, as far as the text has them.
void JsonScanner::look(std::size_t count) {
  while (m_text.size() - m_at < count && hasMore()) continue;
}

// Has the whole of a number in the piece.
void JsonScanner::lookAtNumber() {
  std::size_t size = 0;
  do {
    size = m_text.substr(m_at).find_first_not_of("+-.0123456789Ee");
  } while (size == std::string_view::npos && hasMore());
}

JsonScanner::String JsonScanner::readString() {
  std::size_t begin = ++m_at;
  bool hasEscapes = false;
  String string;
  while (true) {
    while (m_at < m_text.size() && kIsPlain[static_cast<unsigned char>(m_text[m_at])]) ++m_at;
    bool const isCut = m_at == m_text.size();
    if (isCut && m_source == nullptr) {
      fail("the line ends in a string");
      return {};
    }
    if (!isCut && m_text[m_at] != '\\') break;
    if (!hasEscapes) m_unescaped.clear();
    hasEscapes = true;
    m_unescaped += m_text.substr(begin, m_at - begin);
    if (isCut) {
      if (!hasMore()) fail("the line ends in a string");
    } else {
      readEscape(string.hasLoneSurrogate);
    }
    if (m_hasFault) return {};
    begin = m_at;
  }
  if (m_text[m_at] != '"') {
    fail("a control character in a string");
    return {};
  }
  string.text = m_text.substr(begin, m_at - begin);
  if (hasEscapes) {
    m_unescaped += string.text;
    string.text = m_unescaped;
  }
  ++m_at;
  return string;
}

void JsonScanner::readEscape(bool& hasLoneSurrogate) {
  if (m_source != nullptr) look(kMaxEscape);
  ++m_at;
  std::size_t letter = m_at < m_text.size() ? kLetters.find(m_text[m_at]) : std::string_view::npos;
  if (letter != std::string_view::npos) {
    m_unescaped += kCharacters[letter];
    ++m_at;
    return;
  }
  if (!isAt('u')) return fail("not an escape");
  ++m_at;
  unsigned code = readHexadecimal();
  if (m_hasFault) return;
  if (isHighSurrogate(code) && isAt('\\') && m_at + 1 < m_text.size() && m_text[m_at + 1] == 'u') {
    std::size_t second = m_at;
    m_at += 2;
    unsigned low = readHexadecimal();
    if (m_hasFault) return;
    if (isLowSurrogate(low)) {
      appendUtf8(m_unescaped, 0x10000U + ((code - 0xD800U) << 10U) + (low - 0xDC00U));
      return;
    }
    m_at = second;
  }
  if (isHighSurrogate(code) || isLowSurrogate(code)) hasLoneSurrogate = true;
  appendUtf8(m_unescaped, code);
}

unsigned JsonScanner::readHexadecimal() {
  unsigned code = 0;
  for (int i = 0; i < 4; ++i, ++m_at) {
    char c = m_at < m_text.size() ? m_text[m_at] : '\0';
    unsigned digit = c >= '0' && c <= '9'   ? static_cast<unsigned>(c - '0')
                     : c >= 'a' && c <= 'f' ? static_cast<unsigned>(c - 'a') + 10
                     : c >= 'A' && c <= 'F' ? static_cast<unsigned>(c - 'A') + 10
                                            : 16;
    if (digit == 16) {
      fail("not a hexadecimal digit");
      return 0;
    }
    code = code * 16 + digit;
  }
  return code;
}

bool JsonScanner::readDigits() {
  if (!isAtDigit()) {
    fail("expected a digit");
    return false;
  }
  while (isAtDigit()) ++m_at;
  return true;
}

std::string_view JsonScanner::readNumber() {
  if (m_source != nullptr) lookAtNumber();
  std::size_t begin = m_at;
  if (isAt('-')) ++m_at;
  if (isAt('0')) {
    ++m_at;
  } else if (!readDigits()) {
    return {};
  }
  if (isAt('.')) {
    ++m_at;
    if (!readDigits()) return {};
  }
  if (isAt('e') || isAt('E')) {
    ++m_at;
    if (isAt('+') || isAt('-')) ++m_at;
    if (!readDigits()) return {};
  }
  return m_text.substr(begin, m_at - begin);
}

std::string_view JsonScanner::readLiteral(std::string_view literal) {
  if (m_source != nullptr) look(literal.size());
  for (char c : literal) {
    if (!isAt(c)) {
      fail("not a value");
      return {};
    }
    ++m_at;
  }
  return literal;
}

}  // namespace fdmorph::document
