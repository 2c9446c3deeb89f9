#include "charset/icu_table.h"

#include <unicode/ucnv.h>

#include <memory>

namespace fdmorph::charset {
namespace {

struct Closer {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, Closer>;

// Makes a converter fail where its default puts substitutes.
bool makeStrict(UConverter* converter) {
  UErrorCode status = U_ZERO_ERROR;
  ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
  ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
  ucnv_setFallback(converter, 0);
  return U_SUCCESS(status) != 0;
}

char32_t characterOf(UConverter* converter, unsigned byte) {
  char const source = static_cast<char>(byte);
  std::array<UChar, 4> units{};
  UErrorCode status = U_ZERO_ERROR;
  ucnv_reset(converter);
  int const length =
      ucnv_toUChars(converter, units.data(), static_cast<int>(units.size()), &source, 1, &status);
  bool const isSurrogate = (units[0] & 0xF800U) == 0xD800U;
  return U_FAILURE(status) || length != 1 || isSurrogate ? kNoCharacter : char32_t{units[0]};
}

// The library always reads reverse fallbacks, so the way back decides.
bool isWrittenAs(UConverter* converter, char32_t character, unsigned byte) {
  UChar const unit = static_cast<UChar>(character);
  std::array<char, 8> bytes{};
  UErrorCode status = U_ZERO_ERROR;
  ucnv_reset(converter);
  int const length =
      ucnv_fromUChars(converter, bytes.data(), static_cast<int>(bytes.size()), &unit, 1, &status);
  return U_SUCCESS(status) && length == 1 && static_cast<unsigned char>(bytes[0]) == byte;
}

bool isSingleByte(UConverterType type) {
  return type == UCNV_SBCS || type == UCNV_US_ASCII || type == UCNV_LATIN_1;
}

}  // namespace

IcuTable readIcuTable(std::string const& name) {
  IcuTable table;
  // An empty name is that of the locale.
  if (name.empty()) return table;
  UErrorCode status = U_ZERO_ERROR;
  Converter const converter(ucnv_open(name.c_str(), &status));
  if (U_FAILURE(status) || !makeStrict(converter.get())) return table;
  UConverterType const type = ucnv_getType(converter.get());
  if (type == UCNV_UTF8) {
    table.outcome = IcuOutcome::utf8;
    return table;
  }
  if (!isSingleByte(type)) {
    table.outcome = IcuOutcome::multiByte;
    return table;
  }
  table.outcome = IcuOutcome::found;
  for (unsigned byte = 0; byte < table.characters.size(); ++byte) {
    char32_t const character = characterOf(converter.get(), byte);
    bool const isPair = character != kNoCharacter && isWrittenAs(converter.get(), character, byte);
    table.characters[byte] = isPair ? character : kNoCharacter;
  }
  return table;
}

}  // namespace fdmorph::charset
