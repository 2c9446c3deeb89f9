// Numbers as this program writes them: an optional sign, integer digits, and exactly
// the decimal places of the item.
#include <cstring>

#include "document/predicted_reader.h"
#include "values/number_bytes.h"

namespace fdmorph::document {
namespace {

using values::ItemFormat;
using values::SignBytes;

constexpr unsigned kMostDigits = 18;
constexpr unsigned kNibbleBits = 4;

bool isDigit(char c) {
  return static_cast<unsigned char>(c - '0') < 10;
}

/// The digits of an item, with zeros before them.
struct Digits {
  unsigned char values[kMostDigits] = {};
  std::uint64_t value = 0;
  bool isNegative = false;
};

void storeZoned(ItemFormat const& format, Digits const& number, SignBytes const& table,
                unsigned char* bytes) {
  for (unsigned i = 0; i < format.digits; ++i) {
    bytes[i] = static_cast<unsigned char>(table.zero + number.values[i]);
  }
  if (!format.isSigned) return;
  bool isLeading = format.sign == compiler::SignPosition::leading;
  unsigned const at = isLeading ? 0 : format.digits - 1U;
  auto const& signs = number.isNegative ? table.negative : table.positive;
  bytes[at] = signs[number.values[at]];
}

// Two digits a byte, and a sign in the last nibble. Before them may be a pad of zero.
void storePacked(ItemFormat const& format, Digits const& number, unsigned char* bytes) {
  constexpr unsigned kPlus = 0xC;
  constexpr unsigned kMinus = 0xD;
  constexpr unsigned kUnsigned = 0xF;
  unsigned char nibbles[2 * kMostDigits] = {};
  std::size_t const count = 2 * std::size_t{format.size};
  std::memcpy(nibbles + (count - 1 - format.digits), number.values, format.digits);
  nibbles[count - 1] = static_cast<unsigned char>(number.isNegative ? kMinus
                                                  : format.isSigned ? kPlus
                                                                    : kUnsigned);
  for (std::size_t i = 0; i < format.size; ++i) {
    bytes[i] = static_cast<unsigned char>((nibbles[2 * i] << kNibbleBits) | nibbles[2 * i + 1]);
  }
}

}  // namespace

// False for any other spelling; the general way looks at it again.
bool PredictedReader::readNumber(Step const& step, unsigned char* bytes, char end) {
  ItemFormat const& format = *step.format;
  char const* at = m_at;
  // The longest spelling: a sign, the digits, a zero before the point, and the end.
  if (m_end - at < static_cast<std::ptrdiff_t>(kMostDigits) + 5) return false;
  Digits number;
  number.isNegative = *at == '-';
  if (number.isNegative) ++at;
  // Not below zero, see codecOf().
  auto const scale = static_cast<unsigned>(static_cast<unsigned char>(format.scale));
  unsigned const places = format.digits - scale;
  char const* const integer = at;
  while (at - integer <= static_cast<std::ptrdiff_t>(kMostDigits) && isDigit(*at)) ++at;
  auto size = static_cast<unsigned>(at - integer);
  if (size == 0) return false;
  bool isZero = size == 1 && *integer == '0';
  char const* digits = integer;
  if (isZero && places == 0) {
    ++digits;
    --size;
  }
  if (size > places) return false;
  unsigned char* out = number.values + (places - size);
  for (unsigned i = 0; i < size; ++i) {
    auto const digit = static_cast<unsigned char>(digits[i] - '0');
    out[i] = digit;
    number.value = number.value * 10 + digit;
  }
  if (scale > 0) {
    if (*at++ != '.') return false;
    for (unsigned i = 0; i < scale; ++i) {
      if (!isDigit(at[i])) return false;
      auto const digit = static_cast<unsigned char>(at[i] - '0');
      number.values[places + i] = digit;
      number.value = number.value * 10 + digit;
    }
    at += scale;
  }
  if (*at != end) return false;
  if (number.value == 0) number.isNegative = false;
  if (number.isNegative && !format.isSigned) return false;
  switch (step.codec) {
    case Codec::zoned:
      storeZoned(format, number, m_set.values().signBytes(), bytes);
      break;
    case Codec::packed:
      storePacked(format, number, bytes);
      break;
    default:
      if (!values::isInRange({number.value, number.isNegative}, format.size, format.isSigned)) {
        return false;
      }
      values::storeInteger(number.isNegative ? ~number.value + 1 : number.value, bytes, format.size,
                           format.isBigEndian);
      break;
  }
  m_at = at;
  return true;
}

}  // namespace fdmorph::document
