#include "values/edited_picture.h"
#include "values/floating.h"
#include "values/number_decoding.h"
#include "values/number_text.h"
#include "values/text_decoding.h"
#include "values/values.h"

namespace fdmorph::values {
namespace {

DecodeResult decodeEdited(ItemFormat const& format, unsigned char const* bytes,
                          charset::CodePage const& page, char* out) {
  StoredDigits const number = format.edited->read(bytes, page);
  if (number.error != ValueError::none) return {out, number.error};
  DigitText digits{};
  for (unsigned i = 0; i < number.count; ++i) {
    digits[i] = static_cast<char>('0' + number.digits[i]);
  }
  return {writeNumber(out, digits, 0, number.count, format.scale, number.isNegative),
          ValueError::none, true};
}

}  // namespace

std::size_t Values::maxTextSize(ItemFormat const& format) {
  constexpr std::size_t kMaxCharacter = 6;  // of a byte: &quot; and \u0000
  constexpr std::size_t kSlack = sizeof(CharacterText);
  if (format.isNumber()) return kMaxNumberText;
  return kMaxCharacter * format.size + kSlack;
}

template <Target target>
DecodeResult Values::decode(ItemFormat const& format, unsigned char const* bytes, char* out) const {
  CharacterTable const& table = m_characters[static_cast<std::size_t>(target)];
  switch (format.kind) {
    case Kind::text: {
      ByteRun const run = trimmed(format, bytes, m_conventions.trim, m_signs.blank);
      return m_isUtf8 ? decodeUtf8(table, run, isXml(target), out) : decodeBytes(table, run, out);
    }
    case Kind::national:
      return decodeUtf16(table, trimmedNational(format, bytes, m_conventions.trim),
                         format.isBigEndian, isXml(target), out);
    case Kind::zoned:
      return decodeZoned(format, bytes, out);
    case Kind::packed:
    case Kind::unsignedPacked:
      return decodePacked(format, bytes, out);
    case Kind::binary:
      return decodeBinary(format, bytes, out);
    case Kind::floating:
      return decodeFloating(format, bytes, out);
    case Kind::editedNumber:
      return decodeEdited(format, bytes, *m_conventions.codePage, out);
    default:
      return {out};
  }
}

template DecodeResult Values::decode<Target::xmlText>(ItemFormat const&, unsigned char const*,
                                                      char*) const;
template DecodeResult Values::decode<Target::xmlAttribute>(ItemFormat const&, unsigned char const*,
                                                           char*) const;
template DecodeResult Values::decode<Target::json>(ItemFormat const&, unsigned char const*,
                                                   char*) const;
template DecodeResult Values::decode<Target::plain>(ItemFormat const&, unsigned char const*,
                                                    char*) const;

}  // namespace fdmorph::values
