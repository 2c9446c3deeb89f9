#include <algorithm>
#include <cstring>

#include "values/edited_picture.h"
#include "values/floating.h"
#include "values/number_bytes.h"
#include "values/number_text.h"
#include "values/text_encoding.h"
#include "values/values.h"

namespace fdmorph::values {
namespace {

using compiler::SignPosition;

void storeZoned(ItemFormat const& format, StoredDigits const& number, SignBytes const& table,
                unsigned char* bytes) {
  if (format.isBlankWhenZero && number.isZero) {
    std::memset(bytes, table.blank, format.size);
    return;
  }
  bool const isLeading = format.sign == SignPosition::leading;
  if (format.isSignSeparate) {
    unsigned char const sign = number.isNegative ? table.minus : table.plus;
    bytes[isLeading ? 0 : number.count] = sign;
    if (isLeading) ++bytes;
  }
  for (unsigned i = 0; i < number.count; ++i) {
    bytes[i] = static_cast<unsigned char>(table.zero + number.digits[i]);
  }
  if (!format.isSigned || format.isSignSeparate) return;
  unsigned const signAt = isLeading ? 0 : number.count - 1;
  auto const& signedDigits = number.isNegative ? table.negative : table.positive;
  bytes[signAt] = signedDigits[number.digits[signAt]];
}

unsigned signNibble(ItemFormat const& format, bool isNegative) {
  constexpr unsigned kPlus = 0xC;
  constexpr unsigned kMinus = 0xD;
  constexpr unsigned kUnsigned = 0xF;
  return isNegative ? kMinus : format.isSigned ? kPlus : kUnsigned;
}

// Two digits a byte, from the last byte on; before them is a pad of zero.
void storePacked(ItemFormat const& format, StoredDigits const& number, unsigned char* bytes) {
  unsigned next = number.count;
  auto takeDigit = [&]() -> unsigned { return next == 0 ? 0U : number.digits[--next]; };
  for (unsigned i = format.size; i-- > 0;) {
    bool const hasSign = i == format.size - 1 && format.kind == Kind::packed;
    unsigned const low = hasSign ? signNibble(format, number.isNegative) : takeDigit();
    bytes[i] = static_cast<unsigned char>(takeDigit() * 16 + low);
  }
}

/// False if the bytes cannot hold the number.
bool storeBinary(ItemFormat const& format, StoredDigits const& number, unsigned char* bytes) {
  std::uint64_t value = 0;
  for (unsigned i = 0; i < number.count; ++i) {
    bool const isTooLarge = __builtin_mul_overflow(value, 10U, &value) ||
                            __builtin_add_overflow(value, number.digits[i], &value);
    if (isTooLarge) return false;
  }
  if (!isInRange({value, number.isNegative}, format.size, format.isSigned)) return false;
  storeInteger(number.isNegative ? ~value + 1 : value, bytes, format.size, format.isBigEndian);
  return true;
}

// The numbers for which blanks may stand.
bool mayBeBlank(ItemFormat const& format) {
  return format.kind == Kind::zoned || format.kind == Kind::packed;
}

}  // namespace

// Writes a plain number of up to 15 digits; false if the text is another.
bool Values::encodeRow(ItemFormat const& format, std::string_view text,
                       unsigned char* bytes) const {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  bool const isPacked = format.kind == Kind::packed;
  bool const isZoned = format.kind == Kind::zoned && !format.isSignSeparate &&
                       format.sign != SignPosition::leading && !format.isBlankWhenZero;
  bool const isBinary = format.kind == Kind::binary;
  if (!isPacked && !isZoned && !isBinary) return false;
  if ((format.digits >= kMaxRow && !isBinary) || format.scale < 0) return false;
  unsigned const most = std::min<unsigned>(format.digits, kMaxRow - 1);
  std::optional<TextRow> const read = readRow(text, most, format.scale);
  if (!read) return false;
  bool const isNegative = read->isNegative && read->row != 0;
  if (isNegative && !format.isSigned) return false;
  if (isBinary) {
    std::uint64_t const value = valueOfRow(read->row);
    if (!isInRange({value, isNegative}, format.size, format.isSigned)) return false;
    storeInteger(isNegative ? ~value + 1 : value, bytes, format.size, format.isBigEndian);
    return true;
  }
  if (isPacked) {
    storeInteger((read->row << 4U) | signNibble(format, isNegative), bytes, format.size, true);
    return true;
  }
  std::uint64_t const zones = m_signs.zero * kOnes;
  unsigned const count = format.digits;
  unsigned const low = count > 8 ? 8 : count;
  if (count > low) {
    storeInteger(spreadDigits(read->row >> 32U) | zones, bytes, count - low, true);
  }
  storeInteger(spreadDigits(read->row) | zones, bytes + (count - low), low, true);
  if (format.isSigned) {
    auto const& digits = isNegative ? m_signs.negative : m_signs.positive;
    bytes[count - 1] = digits[read->row & 0xFU];
  }
  return true;
}

EncodeResult Values::encodeNumber(ItemFormat const& format, std::string_view text,
                                  unsigned char* bytes, NumberSyntax syntax) const {
  if (encodeRow(format, text, bytes)) return {};
  bool const takesBlanks = m_conventions.blankNumbers == BlankNumbers::omit && mayBeBlank(format);
  if (takesBlanks && withoutBlanks(text).empty()) {
    std::memset(bytes, m_signs.blank, format.size);
    return {};
  }
  StoredDigits const number = storeDigits(text, format, m_conventions.rounding, syntax);
  if (number.error != ValueError::none) return {number.error};
  bool isStored = true;
  bool isInEncoding = true;
  switch (format.kind) {
    case Kind::zoned:
      storeZoned(format, number, m_signs, bytes);
      break;
    case Kind::packed:
    case Kind::unsignedPacked:
      storePacked(format, number, bytes);
      break;
    case Kind::binary:
      isStored = storeBinary(format, number, bytes);
      break;
    default:
      isInEncoding = format.edited->edit(number, *m_conventions.codePage, bytes);
      break;
  }
  if (!isStored) return {ValueError::overflow};
  if (number.isPrecisionLost) return {ValueError::precision};
  return {isInEncoding ? ValueError::none : ValueError::character};
}

EncodeResult Values::encode(ItemFormat const& format, std::string_view text, unsigned char* bytes,
                            NumberSyntax syntax) const {
  switch (format.kind) {
    case Kind::text: {
      TextRules const rules{m_conventions.codePage.get(), &m_textBytes, m_unmappable,
                            m_conventions.truncates};
      return encodeText(format, text, rules, bytes);
    }
    case Kind::national:
      return encodeNational(format, text, m_conventions.truncates, bytes);
    case Kind::floating:
      return encodeFloating(format, text, bytes);
    case Kind::empty:
      return {text.empty() ? ValueError::none : ValueError::length};
    case Kind::opaque:
      std::memset(bytes, 0, format.size);
      return {};
    default:
      return encodeNumber(format, text, bytes, syntax);
  }
}

}  // namespace fdmorph::values
