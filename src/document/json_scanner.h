// The tokens of JSON texts, RFC 8259.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fdmorph::document {

/// The offset of the first byte that does not continue or begin a character of UTF-8;
/// npos if there is none.
[[nodiscard]] std::size_t findMalformedUtf8(std::string_view text);

/// Appends a text as in a string of JSON, without quotes. Surrogates that stand alone,
/// as JsonScanner reads them, are escaped too.
void appendJsonEscaped(std::string& out, std::string_view text);

/// Reads tokens of a text that is valid UTF-8, which must outlive it. After a fault
/// nothing more is to be read.
class JsonScanner {
 public:
  struct String {
    std::string_view text;          ///< valid until the next string is read
    bool hasLoneSurrogate = false;  ///< written as the 3 bytes of UTF-8's pattern
  };

  JsonScanner(std::string_view text, std::size_t begin) : m_text(text), m_at(begin) {}

  /// Passes blanks over. The next byte, or NUL at the end.
  [[nodiscard]] char peek();

  /// The offset of the next byte.
  [[nodiscard]] std::size_t offset() const { return m_at; }

  /// Whether only blanks are left.
  [[nodiscard]] bool isAtEnd() {
    static_cast<void>(peek());
    return m_at == m_text.size();
  }

  /// Passes the byte that peek() has shown.
  void take() { ++m_at; }

  /// Each begins at the byte that peek() has shown. They may set a fault.
  [[nodiscard]] String readString();
  [[nodiscard]] std::string_view readNumber();
  [[nodiscard]] std::string_view readLiteral(std::string_view literal);

  /// The next byte does not fit.
  void fail(std::string_view expected) {
    m_fault = expected;
    m_hasFault = true;
  }

  [[nodiscard]] bool hasFault() const { return m_hasFault; }
  /// What is wrong at offset().
  [[nodiscard]] std::string_view fault() const { return m_fault; }

 private:
  [[nodiscard]] bool isAt(char c) const { return m_at < m_text.size() && m_text[m_at] == c; }
  [[nodiscard]] bool isAtDigit() const {
    return m_at < m_text.size() && m_text[m_at] >= '0' && m_text[m_at] <= '9';
  }
  [[nodiscard]] bool readDigits();
  void readEscape(bool& hasLoneSurrogate);
  [[nodiscard]] unsigned readHexadecimal();

  std::string_view m_text;
  std::size_t m_at;
  std::string m_unescaped;
  std::string_view m_fault;
  bool m_hasFault = false;
};

}  // namespace fdmorph::document
