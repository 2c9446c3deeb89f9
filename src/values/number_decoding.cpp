#include "values/number_decoding.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "values/number_bytes.h"
#include "values/number_text.h"

namespace fdmorph::values {
namespace {

using compiler::SignPosition;

/// The two digits of a packed byte as characters; NUL if a nibble is none.
using DigitPair = std::array<char, 2>;

constexpr std::array<DigitPair, 256> makeDigitPairs() {
  std::array<DigitPair, 256> pairs{};
  for (unsigned high = 0; high < 10; ++high) {
    for (unsigned low = 0; low < 10; ++low) {
      pairs[high * 16 + low] = {static_cast<char>('0' + high), static_cast<char>('0' + low)};
    }
  }
  return pairs;
}

constexpr std::array<DigitPair, 256> kDigitPairs = makeDigitPairs();

constexpr std::array<std::uint64_t, 20> makePowers() {
  std::array<std::uint64_t, 20> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}

constexpr std::array<std::uint64_t, 20> kPowers = makePowers();

bool isFilledWith(unsigned char const* bytes, unsigned size, unsigned char byte) {
  return std::all_of(bytes, bytes + size, [byte](unsigned char each) { return each == byte; });
}

constexpr bool isRowScale(int scale) {
  return scale >= 0 && scale <= static_cast<int>(kMaxRow);
}

DecodeResult zero(ItemFormat const& format, char* out) {
  DigitText digits{};
  digits[0] = '0';
  return {writeNumber(out, digits, 0, 1, std::max<int>(format.scale, 0), false), ValueError::none,
          true};
}

/// What the bytes of a number without digits mean; nothing if they are an error.
std::optional<DecodeResult> decodeBlankNumber(ItemFormat const& format, unsigned char const* bytes,
                                              BlankNumbers meaning, unsigned char blank,
                                              char* out) {
  bool const isBlank = isFilledWith(bytes, format.size, blank);
  if (isBlank && format.isBlankWhenZero) return zero(format, out);
  if (meaning != BlankNumbers::zero && meaning != BlankNumbers::omit) return std::nullopt;
  if (!isBlank && !isFilledWith(bytes, format.size, 0)) return std::nullopt;
  if (meaning == BlankNumbers::zero) return zero(format, out);
  return DecodeResult{out, ValueError::none, false, true};
}

DecodeResult decodeZonedDigits(ItemFormat const& format, unsigned char const* bytes,
                               SignBytes const& table, char* out) {
  unsigned const count = format.digits;
  DigitText digits{};
  bool isWrong = false;
  bool isNegative = false;
  auto take = [&](unsigned char const* from, unsigned begin, unsigned end) {
    for (unsigned i = begin; i < end; ++i) {
      digits[i] = table.digits[from[i]];
      isWrong |= digits[i] == 0;
    }
  };
  bool const isLeading = format.sign == SignPosition::leading;
  if (format.isSignSeparate) {
    take(isLeading ? bytes + 1 : bytes, 0, count);
    unsigned char const sign = isLeading ? bytes[0] : bytes[count];
    isNegative = sign == table.minus;
    isWrong |= !isNegative && sign != table.plus;
  } else {
    unsigned const signAt = isLeading ? 0 : count - 1;
    take(bytes, isLeading ? 1 : 0, isLeading ? count : count - 1);
    std::uint8_t const digit = table.signedDigits[bytes[signAt]];
    isNegative = (digit & SignBytes::kNegative) != 0;
    isWrong |= digit == SignBytes::kNone || (isNegative && !format.isSigned);
    digits[signAt] = static_cast<char>('0' + (digit & 0xFU));
  }
  if (isWrong) return {out, ValueError::digit};
  return {writeNumber(out, digits, 0, count, format.scale, isNegative), ValueError::none, true};
}

/// The same, with zeros for the blanks before the first digit.
DecodeResult decodeLeadingBlanks(ItemFormat const& format, unsigned char const* bytes,
                                 SignBytes const& table, char* out) {
  std::array<unsigned char, kMaxStoredDigits> copy{};
  std::copy_n(bytes, format.size, copy.begin());
  unsigned at = format.isSignSeparate && format.sign == SignPosition::leading ? 1 : 0;
  unsigned const end = at + format.digits;
  for (; at < end && copy[at] == table.blank; ++at) {
    bool const hasSign = at == 0 && !format.isSignSeparate && format.sign == SignPosition::leading;
    copy[at] = hasSign ? table.positive[0] : table.zero;
  }
  if (at == end) return {out, ValueError::digit};
  return decodeZonedDigits(format, copy.data(), table, out);
}

}  // namespace

// Reads up to 15 digits as a row; nothing if they are more or not all digits.
std::optional<DecodeResult> Values::decodeZonedRow(ItemFormat const& format,
                                                   unsigned char const* bytes, char* out) const {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  constexpr std::uint64_t kHighs = 0x8080808080808080;
  constexpr std::uint64_t kZones = 0xF0F0F0F0F0F0F0F0;
  unsigned const count = format.digits;
  if (count >= kMaxRow || !isRowScale(format.scale) || format.isSignSeparate ||
      format.sign == SignPosition::leading || m_conventions.hasStrictZones) {
    return std::nullopt;
  }
  std::uint8_t const last = m_signs.signedDigits[bytes[count - 1]];
  bool const isNegative = (last & SignBytes::kNegative) != 0;
  if (last == SignBytes::kNone || (isNegative && !format.isSigned)) return std::nullopt;
  std::uint64_t row = 0;
  std::uint64_t wrong = 0;
  unsigned left = count - 1;
  auto take = [&](unsigned size) {
    std::uint64_t const part = loadInteger(bytes, size, true);
    std::uint64_t const blanks = part ^ (m_signs.blank * kOnes);
    // A byte of zero borrows from its highest bit, and only above one may others.
    wrong |= (blanks - kOnes) & ~blanks & kHighs;
    row = (row << (4 * size)) | gatherDigits(part & ~kZones);
    bytes += size;
    left -= size;
  };
  if (left > 8) take(left - 8);
  if (left > 0) take(left);
  row = (row << 4U) | (last & 0xFU);
  if (wrong != 0 || !isDigitRow(row)) return std::nullopt;
  return DecodeResult{writeRow(out, row, format.scale, isNegative), ValueError::none, true};
}

// The same for up to 15 digits and a sign.
std::optional<DecodeResult> Values::decodePackedRow(ItemFormat const& format,
                                                    unsigned char const* bytes, char* out) const {
  if (format.size > sizeof(std::uint64_t) || format.kind != Kind::packed ||
      !isRowScale(format.scale)) {
    return std::nullopt;
  }
  std::uint64_t const stored = loadInteger(bytes, format.size, true);
  unsigned const sign = stored & 0xFU;
  std::uint64_t const row = stored >> 4U;
  bool const isNegative = sign == 0xD || sign == 0xB;
  // One condition, since a processor cannot predict signs.
  std::uint64_t wrong = row >> (4 * format.digits);
  wrong |= static_cast<unsigned>(sign < 0xA) | static_cast<unsigned>(!isDigitRow(row));
  wrong |= static_cast<unsigned>(isNegative) & static_cast<unsigned>(!format.isSigned);
  if (wrong != 0) return std::nullopt;
  return DecodeResult{writeRow(out, row, format.scale, isNegative), ValueError::none, true};
}

DecodeResult Values::decodeZoned(ItemFormat const& format, unsigned char const* bytes,
                                 char* out) const {
  if (auto const row = decodeZonedRow(format, bytes, out)) return *row;
  DecodeResult const result = decodeZonedDigits(format, bytes, m_signs, out);
  if (result.error == ValueError::none) return result;
  BlankNumbers const meaning = m_conventions.blankNumbers;
  if (auto blank = decodeBlankNumber(format, bytes, meaning, m_signs.blank, out)) return *blank;
  if (meaning != BlankNumbers::leading) return result;
  return decodeLeadingBlanks(format, bytes, m_signs, out);
}

DecodeResult Values::decodePacked(ItemFormat const& format, unsigned char const* bytes,
                                  char* out) const {
  if (auto const row = decodePackedRow(format, bytes, out)) return *row;
  bool const hasSign = format.kind == Kind::packed;
  unsigned const whole = hasSign ? format.size - 1 : format.size;
  DigitText digits{};
  bool isWrong = false;
  for (unsigned i = 0; i < whole; ++i) {
    DigitPair const& pair = kDigitPairs[bytes[i]];
    std::memcpy(digits.data() + std::size_t{2} * i, pair.data(), pair.size());
    isWrong |= pair[0] == 0;
  }
  bool isNegative = false;
  unsigned nibbles = 2 * whole;
  if (hasSign) {
    unsigned const last = bytes[whole];
    unsigned const sign = last & 0xFU;
    digits[nibbles++] = static_cast<char>('0' + (last >> 4U));
    isNegative = sign == 0xD || sign == 0xB;
    isWrong |= (last >> 4U) > 9 || sign < 0xA || (isNegative && !format.isSigned);
  }
  if (isWrong) {
    if (hasSign) {
      auto blank = decodeBlankNumber(format, bytes, m_conventions.blankNumbers, m_signs.blank, out);
      if (blank) return *blank;
    }
    return {out, ValueError::digit};
  }
  unsigned const pad = nibbles - format.digits;
  if (pad != 0 && digits[0] != '0') return {out, ValueError::range};
  return {writeNumber(out, digits, pad, format.digits, format.scale, isNegative), ValueError::none,
          true};
}

DecodeResult decodeBinary(ItemFormat const& format, unsigned char const* bytes, char* out) {
  std::uint64_t const stored = loadInteger(bytes, format.size, format.isBigEndian);
  Magnitude const number = magnitudeOf(stored, format.size, format.isSigned);
  if (format.isDigitBounded && format.digits < kPowers.size() &&
      number.value >= kPowers[format.digits]) {
    return {out, ValueError::range};
  }
  constexpr int kMaxScale = 18;  // whose power is below half of the numbers
  if (format.scale >= 0 && format.scale <= kMaxScale) {
    if (number.isNegative) *out++ = '-';
    std::uint64_t const power = kPowers[static_cast<std::uint8_t>(format.scale)];
    char* const room = out + kMaxNumberText / 2;
    out = std::to_chars(out, room, number.value / power).ptr;
    if (format.scale > 0) {
      // The digit 1 before the decimal places keeps their zeros; the point replaces it.
      char* const point = out;
      out = std::to_chars(out, room, power + number.value % power).ptr;
      *point = '.';
    }
    return {out, ValueError::none, true};
  }
  DigitText digits{};
  char const* const end =
      std::to_chars(digits.data(), digits.data() + kPowers.size() + 1, number.value).ptr;
  auto const count = static_cast<unsigned>(end - digits.data());
  return {writeNumber(out, digits, 0, count, format.scale, number.isNegative), ValueError::none,
          true};
}

}  // namespace fdmorph::values
