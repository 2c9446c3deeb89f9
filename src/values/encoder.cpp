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

// Two digits a byte, from the last byte on; before them is a pad of zero.
void storePacked(ItemFormat const& format, StoredDigits const& number, unsigned char* bytes) {
  constexpr unsigned kPlus = 0xC;
  constexpr unsigned kMinus = 0xD;
  constexpr unsigned kUnsigned = 0xF;
  unsigned next = number.count;
  auto takeDigit = [&]() -> unsigned { return next == 0 ? 0U : number.digits[--next]; };
  for (unsigned i = format.size; i-- > 0;) {
    bool const hasSign = i == format.size - 1 && format.kind == Kind::packed;
    unsigned const sign = number.isNegative ? kMinus : format.isSigned ? kPlus : kUnsigned;
    unsigned const low = hasSign ? sign : takeDigit();
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

EncodeResult Values::encodeNumber(ItemFormat const& format, std::string_view text,
                                  unsigned char* bytes, NumberSyntax syntax) const {
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
