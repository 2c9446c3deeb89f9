#include "values/edited_picture.h"

#include <algorithm>

#include "semantics/picture_runs.h"
#include "source/literals.h"
#include "values/utf8_reader.h"

namespace fdmorph::values {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isSign(char symbol) {
  return symbol == '+' || symbol == '-';
}

bool mayFloat(char symbol) {
  return isSign(symbol) || symbol == '$';
}

std::u32string currencyOf(compiler::PictureRules const& rules) {
  if (rules.currencyString.empty()) return {static_cast<unsigned char>(rules.currency)};
  std::string const text = compiler::decodeLiteral(rules.currencyString).text;
  auto const* at = reinterpret_cast<unsigned char const*>(text.data());
  std::u32string result;
  for (std::size_t i = 0; i < text.size();) {
    Utf8Character const character = readUtf8(at + i, text.size() - i);
    result += character.length == 0 ? kReplacement : character.code;
    i += std::max<std::size_t>(character.length, 1);
  }
  return result;
}

}  // namespace

std::shared_ptr<EditedPicture const> EditedPicture::make(compiler::Picture const& picture) {
  bool const isFloatingPoint = picture.nines == 0;
  if (isFloatingPoint || picture.size > kMaxSize) return nullptr;
  compiler::PictureRuns const read = readPictureRuns(picture.text, picture.rules, {});
  std::shared_ptr<EditedPicture> edited(new EditedPicture);
  edited->m_digits = picture.nines;
  edited->m_isDecimalComma = picture.rules.isDecimalComma;
  edited->m_currency = currencyOf(picture.rules);
  edited->m_canBeBlank = true;
  for (compiler::PictureRun const& run : read.runs) edited->add(run.symbol, run.count);
  edited->m_size = picture.size;
  return edited;
}

void EditedPicture::add(char symbol, std::uint64_t count) {
  if (symbol == 'P' || symbol == 'S') return;
  m_symbols.append(count, symbol);
  if (count == 0) return;
  m_isSigned |= isSign(symbol) || symbol == 'C' || symbol == 'D';
  m_canBeBlank &= symbol != '9';
  if (symbol == '*') m_fill = '*';
  if (mayFloat(symbol) && std::count(m_symbols.begin(), m_symbols.end(), symbol) > 1) {
    m_floating = symbol;
  }
}

// The first of the floating symbols has no digit.
bool EditedPicture::isDigit(std::size_t at) const {
  char const symbol = m_symbols[at];
  if (symbol == '9' || symbol == 'Z' || symbol == '*') return true;
  return symbol == m_floating && m_symbols.find(symbol) < at;
}

char32_t EditedPicture::insertionOf(char symbol) const {
  if (symbol == 'B') return ' ';
  if (symbol == '.' && m_isDecimalComma) return ',';
  if (symbol == ',' && m_isDecimalComma) return '.';
  return static_cast<unsigned char>(symbol);
}

// Puts the floating symbol before the first character that is shown.
void EditedPicture::floatSign(std::u32string& out, std::size_t shown, bool isNegative) const {
  std::u32string sign = m_currency;
  if (m_floating == '+') sign = isNegative ? U"-" : U"+";
  if (m_floating == '-') sign = isNegative ? U"-" : U" ";
  if (shown < sign.size() || shown > out.size()) return;
  out.replace(shown - sign.size(), sign.size(), sign);
}

std::u32string EditedPicture::textOf(StoredDigits const& number) const {
  std::u32string out;
  out.reserve(m_size);
  bool isSuppressing = m_symbols.find_first_of("Z*") != std::string::npos || m_floating != 0;
  bool isInside = false;  // a position that may be suppressed has come
  std::size_t shown = std::u32string::npos;
  unsigned digit = 0;
  for (std::size_t i = 0; i < m_symbols.size(); ++i) {
    char const symbol = m_symbols[i];
    std::uint8_t const value = isDigit(i) ? number.digits[digit++] : 0;
    bool const isPoint = symbol == '.' || symbol == 'V';
    if (symbol == '9' || isPoint || value != 0) isSuppressing = false;
    isInside |= symbol == 'Z' || symbol == '*' || (symbol != 0 && symbol == m_floating);
    bool const isVisible = isDigit(i) || symbol == '.';
    if (isVisible && !isSuppressing && shown == std::u32string::npos) shown = out.size();
    if (isDigit(i)) {
      out += isSuppressing ? m_fill : U'0' + value;
    } else if (symbol == 'C' || symbol == 'D') {
      out += !number.isNegative ? U"  " : symbol == 'C' ? U"CR" : U"DB";
    } else if (symbol == m_floating) {
      out.append(symbol == '$' ? m_currency.size() : 1, U' ');
    } else if (symbol == '$') {
      out += m_currency;
    } else if (isSign(symbol)) {
      out += number.isNegative ? U'-' : symbol == '+' ? U'+' : U' ';
    } else if (symbol != 'V') {
      bool const isHidden = isSuppressing && isInside && (symbol == ',' || symbol == 'B');
      out += isHidden ? m_fill : insertionOf(symbol);
    }
  }
  if (m_floating != 0) floatSign(out, shown, number.isNegative);
  if (number.isZero && m_canBeBlank) {
    for (char32_t& each : out) {
      if (m_fill != '*' || each != insertionOf('.')) each = m_fill;
    }
  }
  return out;
}

bool EditedPicture::edit(StoredDigits const& number, charset::CodePage const& page,
                         unsigned char* bytes) const {
  std::u32string const text = textOf(number);
  if (text.size() != m_size) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    int const byte = page.byteOf(text[i]);
    if (byte < 0) return false;
    bytes[i] = static_cast<unsigned char>(byte);
  }
  return true;
}

}  // namespace fdmorph::values
