#include "bundle/text_units.h"

#include <algorithm>
#include <utility>

#include "text/utf8.h"

namespace fdmorph::bundle {
namespace {

constexpr unsigned char kAsciiEnd = 0x7F;  // no markup holds DEL
constexpr unsigned char kLowSurrogates = 0xDC;
constexpr unsigned char kSurrogateBits = 0xFC;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

}  // namespace

TextUnits::TextUnits(std::string_view bytes) : m_bytes(bytes), m_form(formOf(bytes)) {}

TextUnits::Form TextUnits::formOf(std::string_view bytes) {
  if (bytes.size() < 2) return Form::byte;
  std::string_view head = bytes.substr(0, 2);
  if (head == "\xFE\xFF" || head[0] == '\0') return Form::utf16Big;
  if (head == "\xFF\xFE" || head[1] == '\0') return Form::utf16Little;
  return Form::byte;
}

char TextUnits::at(std::size_t offset) const {
  if (offset + size() > m_bytes.size()) return '\0';
  char low = m_bytes[offset];
  if (m_form != Form::byte) {
    char high = m_bytes[offset + 1];
    if (m_form == Form::utf16Big) std::swap(low, high);
    if (high != '\0') return kOther;
  }
  return static_cast<unsigned char>(low) < kAsciiEnd ? low : kOther;
}

std::string TextUnits::ascii(ByteRange range) const {
  std::string text;
  for (std::size_t offset = range.begin; offset < range.end; offset += size()) text += at(offset);
  return text;
}

std::string TextUnits::encode(std::string_view ascii) const {
  if (m_form == Form::byte) return std::string(ascii);
  std::string encoded;
  for (char c : ascii) {
    if (m_form == Form::utf16Big) encoded += '\0';
    encoded += c;
    if (m_form == Form::utf16Little) encoded += '\0';
  }
  return encoded;
}

TextPlace TextUnits::placeOf(std::size_t offset, TextCursor& cursor) const {
  if (cursor.offset > offset) cursor = {};
  std::size_t at = std::max(cursor.offset, markSize());
  TextPlace& place = cursor.place;
  for (; at < offset; at += size()) {
    if (this->at(at) == '\n') {
      ++place.line;
      place.column = 1;
    } else if (beginsCharacter(at)) {
      ++place.column;
    }
  }
  cursor.offset = at;
  return place;
}

// A byte order mark is no character.
std::size_t TextUnits::markSize() const {
  if (m_form == Form::byte) return m_bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0;
  return m_bytes[0] != '\0' && m_bytes[1] != '\0' ? size() : 0;
}

bool TextUnits::beginsCharacter(std::size_t offset) const {
  if (m_form == Form::byte) return !isUtf8Continuation(m_bytes[offset]);
  std::size_t const high = m_form == Form::utf16Big ? offset : offset + 1;
  if (high >= m_bytes.size()) return true;
  return (static_cast<unsigned char>(m_bytes[high]) & kSurrogateBits) != kLowSurrogates;
}

}  // namespace fdmorph::bundle
