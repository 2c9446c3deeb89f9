// Reading the number that the characters of an edited item show.

#include <algorithm>

#include "values/edited_picture.h"

namespace fdmorph::values {
namespace {

constexpr bool isDecimalDigit(char32_t c) {
  return c >= '0' && c <= '9';
}

}  // namespace

/// Follows the positions of a picture through the characters of an item. Each of
/// its functions takes the characters of one position; false if they do not belong
/// there.
class EditedReader {
 public:
  EditedReader(EditedPicture const& picture, std::u32string const& text)
      : m_picture(picture), m_text(text) {
    m_number.count = picture.m_digits;
  }

  bool read() {
    std::string const& symbols = m_picture.m_symbols;
    for (std::size_t i = 0; i < symbols.size(); ++i) {
      if (!takePosition(symbols[i], m_picture.isDigit(i))) return false;
    }
    m_number.isNegative &= !m_number.isZero;
    return m_isShown && m_at == m_text.size();
  }

  StoredDigits const& number() const { return m_number; }

 private:
  bool takePosition(char symbol, bool isDigit) {
    if (isDigit) return takeDigit(symbol == '9');
    switch (symbol) {
      case 'V':
        return true;
      case 'C':
        return takeNegative(U"CR");
      case 'D':
        return takeNegative(U"DB");
      case '$':
        return m_picture.m_floating == '$' ? takeFloating(m_picture.m_currency.size())
                                           : takeText(m_picture.m_currency);
      case '+':
      case '-':
        return m_picture.m_floating == symbol ? takeFloating(1) : takeSign(symbol);
      default:
        return takeInsertion(m_picture.insertionOf(symbol));
    }
  }

  char32_t take() { return m_at < m_text.size() ? m_text[m_at++] : U'\0'; }

  bool takeText(std::u32string_view expected) {
    if (m_text.compare(m_at, expected.size(), expected) != 0) return false;
    m_at += expected.size();
    return true;
  }

  bool takeDigit(bool isShownAlways) {
    char32_t const c = take();
    if (!isDecimalDigit(c)) {
      ++m_digit;
      return !isShownAlways && isFilling(c);
    }
    auto const value = static_cast<std::uint8_t>(c - '0');
    m_number.digits[m_digit++] = value;
    m_number.isZero &= value == 0;
    m_isShown = true;
    return true;
  }

  // What stands before the first digit: blanks or asterisks, and the floating sign.
  bool isFilling(char32_t c) {
    if (m_isShown) return false;
    if (c == m_picture.m_fill) return true;
    bool const isSigned = m_picture.m_floating == '+' || m_picture.m_floating == '-';
    if (isSigned && c == '-') m_number.isNegative = true;
    if (isSigned && (c == '-' || c == '+')) return true;
    return m_picture.m_floating == '$' && m_picture.m_currency.find(c) != std::u32string::npos;
  }

  bool takeFloating(std::size_t characters) {
    for (; characters > 0; --characters) {
      if (!isFilling(take())) return false;
    }
    return true;
  }

  bool takeSign(char symbol) {
    char32_t const c = take();
    m_number.isNegative |= c == '-';
    return c == '-' || c == (symbol == '+' ? U'+' : U' ');
  }

  bool takeNegative(std::u32string_view mark) {
    if (takeText(mark)) {
      m_number.isNegative = true;
      return true;
    }
    return takeText(U"  ");
  }

  bool takeInsertion(char32_t expected) {
    char32_t const c = take();
    return c == expected || isFilling(c);
  }

  EditedPicture const& m_picture;
  std::u32string const& m_text;
  StoredDigits m_number;
  std::size_t m_at = 0;
  unsigned m_digit = 0;
  bool m_isShown = false;  ///< a digit has come
};

StoredDigits EditedPicture::read(unsigned char const* bytes, charset::CodePage const& page) const {
  StoredDigits zero;
  zero.count = m_digits;
  std::u32string text(m_size, U'\0');
  std::transform(bytes, bytes + m_size, text.begin(),
                 [&](unsigned char byte) { return static_cast<char32_t>(page.characterOf(byte)); });
  // Suppression may leave nothing of zero.
  if (text == textOf(zero)) return zero;
  EditedReader reader(*this, text);
  if (reader.read()) return reader.number();
  zero.error = ValueError::digit;
  return zero;
}

}  // namespace fdmorph::values
