// The tokens of JSON texts, RFC 8259.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace fdmorph::document {

/// The offset of the first byte that does not continue or begin a character of UTF-8;
/// npos if there is none.
[[nodiscard]] std::size_t findMalformedUtf8(std::string_view text);

/// Appends a text as in a string of JSON, without quotes. Surrogates that stand alone,
/// as JsonScanner reads them, are escaped too.
void appendJsonEscaped(std::string& out, std::string_view text);

/// A text that comes in pieces.
class JsonSource {
 public:
  JsonSource() = default;
  JsonSource(JsonSource const&) = delete;
  JsonSource& operator=(JsonSource const&) = delete;
  virtual ~JsonSource() = default;

  /// The piece from byte `used` of the present one on, with more text after it if there
  /// is any. Nothing at the end of the text, or if there is no room for more.
  [[nodiscard]] virtual std::optional<std::string_view> next(std::size_t used) = 0;
};

/// Reads tokens of a text that is valid UTF-8, which must outlive it. After a fault
/// nothing more is to be read.
class JsonScanner {
 public:
  struct String {
    std::string_view text;          ///< valid until anything more is read
    bool hasLoneSurrogate = false;  ///< written as the 3 bytes of UTF-8's pattern
  };

  /// `text` is the whole text, or the first piece of `source`.
  JsonScanner(std::string_view text, std::size_t begin, JsonSource* source = nullptr)
      : m_text(text), m_at(begin), m_source(source) {}

  /// Passes blanks over. The next byte, or NUL at the end.
  [[nodiscard]] char peek() {
    bool const isThere = m_at < m_text.size() && m_text[m_at] > ' ';
    return isThere ? m_text[m_at] : passBlanks();
  }

  /// The offset of the next byte.
  [[nodiscard]] std::size_t offset() const { return m_before + m_at; }

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
  [[nodiscard]] char passBlanks();
  [[nodiscard]] bool hasMore();
  void look(std::size_t count);
  void lookAtNumber();
  [[nodiscard]] bool readDigits();
  void readEscape(bool& hasLoneSurrogate);
  [[nodiscard]] unsigned readHexadecimal();

  std::string_view m_text;
  std::size_t m_at;
  JsonSource* m_source;
  std::size_t m_before = 0;  // bytes of the text before the piece
  std::string m_unescaped;
  std::string_view m_fault;
  bool m_hasFault = false;
};

}  // namespace fdmorph::document
