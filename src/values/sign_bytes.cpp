#include "values/sign_bytes.h"

namespace fdmorph::values {
namespace {

constexpr std::uint8_t kDigits = 10;

void setSigned(SignBytes& table, unsigned first, std::uint8_t sign) {
  for (unsigned digit = 0; digit < kDigits; ++digit) {
    table.signedDigits[first + digit] = static_cast<std::uint8_t>(digit | sign);
  }
}

// {A-I and }J-R in ASCII.
constexpr std::array<std::uint8_t, kDigits> kPositive{'{', 'A', 'B', 'C', 'D',
                                                      'E', 'F', 'G', 'H', 'I'};
constexpr std::array<std::uint8_t, kDigits> kNegative{'}', 'J', 'K', 'L', 'M',
                                                      'N', 'O', 'P', 'Q', 'R'};

void setOverpunch(SignBytes& table) {
  for (std::uint8_t digit = 0; digit < kDigits; ++digit) {
    table.signedDigits[kPositive[digit]] = digit;
    table.signedDigits[kNegative[digit]] = static_cast<std::uint8_t>(digit | SignBytes::kNegative);
  }
}

std::array<std::uint8_t, kDigits> digitsFrom(unsigned first) {
  std::array<std::uint8_t, kDigits> bytes{};
  for (unsigned digit = 0; digit < kDigits; ++digit) {
    bytes[digit] = static_cast<std::uint8_t>(first + digit);
  }
  return bytes;
}

void setTable(SignBytes& table, SignTable signs) {
  if (signs == SignTable::ebcdic) {
    for (unsigned zone : {0xA0U, 0xC0U, 0xE0U, 0xF0U}) setSigned(table, zone, 0);
    for (unsigned zone : {0xB0U, 0xD0U}) setSigned(table, zone, SignBytes::kNegative);
    table.positive = digitsFrom(0xC0);
    table.negative = digitsFrom(0xD0);
    return;
  }
  setSigned(table, 0x30, 0);
  setOverpunch(table);
  if (signs == SignTable::overpunch) {
    table.positive = kPositive;
    table.negative = kNegative;
    return;
  }
  setSigned(table, 0x70, SignBytes::kNegative);
  table.positive = digitsFrom(0x30);
  table.negative = digitsFrom(0x70);
}

}  // namespace

SignBytes makeSignBytes(Conventions const& conventions) {
  SignBytes table;
  charset::CodePage const& page = *conventions.codePage;
  table.blank = page.blank();
  table.zero = page.zeroDigit();
  table.plus = static_cast<std::uint8_t>(page.byteOf('+'));
  table.minus = static_cast<std::uint8_t>(page.byteOf('-'));
  for (unsigned byte = 0; byte < table.digits.size(); ++byte) {
    unsigned const digit = byte & 0xFU;
    bool const isZone = !conventions.hasStrictZones || (byte & 0xF0U) == table.zero;
    if (digit < kDigits && byte != table.blank && isZone) {
      table.digits[byte] = static_cast<char>('0' + digit);
    }
  }
  table.signedDigits.fill(SignBytes::kNone);
  setTable(table, conventions.signs);
  return table;
}

}  // namespace fdmorph::values
