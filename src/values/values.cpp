#include "values/values.h"

#include <array>
#include <charconv>

#include "values/number_text.h"

namespace fdmorph::values {

Values::Values(Conventions const& conventions)
    : m_conventions(conventions),
      m_signs(makeSignBytes(conventions)),
      m_textBytes(makeTextBytes(conventions)),
      m_isUtf8(conventions.codePage->isUtf8()) {
  for (std::size_t i = 0; i < m_characters.size(); ++i) {
    m_characters[i] = makeCharacterTable(conventions, static_cast<Target>(i));
  }
  if (conventions.unmappable) m_unmappable = conventions.codePage->byteOf(*conventions.unmappable);
}

std::optional<std::int64_t> Values::readInteger(ItemFormat const& format,
                                                unsigned char const* bytes) const {
  if (!format.isNumber() || format.kind == Kind::floating) return std::nullopt;
  std::array<char, kMaxNumberText> text;
  DecodeResult const result = decode<Target::plain>(format, bytes, text.data());
  if (result.error != ValueError::none || result.isOmitted) return std::nullopt;
  std::int64_t number = 0;
  auto const read = std::from_chars(text.data(), result.end, number);
  if (read.ec != std::errc{}) return std::nullopt;
  // Decimal places of an integer are zeros.
  for (char const* at = read.ptr; at < result.end; ++at) {
    if (*at != '.' && *at != '0') return std::nullopt;
  }
  return number;
}

bool Values::writeInteger(ItemFormat const& format, unsigned char* bytes,
                          std::int64_t number) const {
  if (!format.isNumber()) return false;
  std::array<char, 24> text;
  char* const end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  std::string_view const digits(text.data(), static_cast<std::size_t>(end - text.data()));
  return encode(format, digits, bytes).error == ValueError::none;
}

}  // namespace fdmorph::values
