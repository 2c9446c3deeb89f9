// Numeric-edited pictures: numbers as their characters show them.
//
// Digits that are suppressed show a blank, or an asterisk for `*`. So do commas and
// blanks between them. A floating sign or currency string stands before the first
// digit that is shown. Where all digits can be suppressed and the number is zero,
// nothing is shown; a decimal point between asterisks stays. As in GnuCOBOL the
// insertions 0 and / are shown between suppressed digits, unless nothing is.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "charset/code_page.h"
#include "semantics/picture.h"
#include "values/number_text.h"

namespace fdmorph::values {

class EditedPicture {
 public:
  /// The positions of a numeric-edited picture. Null for pictures that are edited as
  /// texts only: those of floating point and those of more than 1,000 characters.
  [[nodiscard]] static std::shared_ptr<EditedPicture const> make(compiler::Picture const& picture);

  /// Whether it shows the sign of negative numbers.
  [[nodiscard]] bool isSigned() const { return m_isSigned; }

  /// The number of its bytes.
  [[nodiscard]] std::size_t size() const { return m_size; }

  /// Writes a number with the digits of the picture. False if the encoding lacks a
  /// character.
  [[nodiscard]] bool edit(StoredDigits const& number, charset::CodePage const& page,
                          unsigned char* bytes) const;

  /// The digits of the number that the bytes show. Its error is `digit` if they show
  /// none.
  [[nodiscard]] StoredDigits read(unsigned char const* bytes, charset::CodePage const& page) const;

  static constexpr std::size_t kMaxSize = 1000;

 private:
  friend class EditedReader;

  EditedPicture() = default;
  void add(char symbol, std::uint64_t count);
  [[nodiscard]] bool isDigit(std::size_t at) const;
  [[nodiscard]] char32_t insertionOf(char symbol) const;
  [[nodiscard]] std::u32string textOf(StoredDigits const& number) const;
  void floatSign(std::u32string& out, std::size_t shown, bool isNegative) const;

  std::string m_symbols;  ///< one a position, currency strings apart; with V, without P
  std::u32string m_currency;
  std::size_t m_size = 0;
  unsigned m_digits = 0;
  char m_floating = 0;    ///< '+', '-' or '$' if it floats
  char32_t m_fill = ' ';  ///< for suppressed digits
  bool m_isDecimalComma = false;
  bool m_isSigned = false;
  bool m_canBeBlank = false;  ///< all digits may be suppressed
};

}  // namespace fdmorph::values
