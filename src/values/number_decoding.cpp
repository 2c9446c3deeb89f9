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

unsigned digitsOf(std::uint64_t number) {
  unsigned count = 1;
  while (count < kPowers.size() && number >= kPowers[count]) ++count;
  return count;
}

DecodeResult Values::decodeZoned(ItemFormat const& format, unsigned char const* bytes,
                                 char* out) const {
  DecodeResult const result = decodeZonedDigits(format, bytes, m_signs, out);
  if (result.error == ValueError::none) return result;
  BlankNumbers const meaning = m_conventions.blankNumbers;
  if (auto blank = decodeBlankNumber(format, bytes, meaning, m_signs.blank, out)) return *blank;
  if (meaning != BlankNumbers::leading) return result;
  return decodeLeadingBlanks(format, bytes, m_signs, out);
}

DecodeResult Values::decodePacked(ItemFormat const& format, unsigned char const* bytes,
                                  char* out) const {
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
  if (format.scale == 0) {
    if (number.isNegative) *out++ = '-';
    return {std::to_chars(out, out + kPowers.size() + 1, number.value).ptr, ValueError::none, true};
  }
  DigitText digits{};
  char const* const end =
      std::to_chars(digits.data(), digits.data() + kPowers.size() + 1, number.value).ptr;
  auto const count = static_cast<unsigned>(end - digits.data());
  return {writeNumber(out, digits, 0, count, format.scale, number.isNegative), ValueError::none,
          true};
}

}  // namespace fdmorph::values
