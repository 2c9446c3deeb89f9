#include "values/text_encoding.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "values/utf8_reader.h"

namespace fdmorph::values {
namespace {

/// A character as it is stored; of 0 bytes if it cannot be.
struct StoredCharacter {
  std::array<unsigned char, 4> bytes{};
  std::size_t size = 0;
  bool isBlank = false;
};

class ByteEncoder {
 public:
  explicit ByteEncoder(TextRules const& rules) : m_rules(rules) {}

  StoredCharacter store(char32_t code) const {
    StoredCharacter stored;
    stored.isBlank = code == ' ';
    int const byte = m_rules.page->byteOf(code);
    if (byte >= 0) {
      stored.bytes[0] = static_cast<unsigned char>(byte);
      stored.size = 1;
    } else if (m_rules.page->isUtf8()) {
      stored.size = code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
      for (std::size_t i = stored.size - 1; i > 0; --i, code >>= 6U) {
        stored.bytes[i] = static_cast<unsigned char>(0x80 | (code & 0x3FU));
      }
      stored.bytes[0] = static_cast<unsigned char>((0xF00U >> stored.size) | code);
    } else if (m_rules.unmappable >= 0) {
      stored.bytes[0] = static_cast<unsigned char>(m_rules.unmappable);
      stored.size = 1;
    }
    return stored;
  }

  void fill(unsigned char* begin, unsigned char const* end) const {
    std::memset(begin, m_rules.page->blank(), static_cast<std::size_t>(end - begin));
  }

 private:
  TextRules const& m_rules;
};

class UnitEncoder {
 public:
  explicit UnitEncoder(bool isBigEndian) : m_isBigEndian(isBigEndian) {}

  StoredCharacter store(char32_t code) const {
    StoredCharacter stored;
    stored.isBlank = code == ' ';
    stored.size = 2;
    if (code >= 0x10000) {
      put(stored.bytes.data() + 2, 0xDC00 + (code & 0x3FFU));
      code = 0xD800 + ((code - 0x10000) >> 10U);
      stored.size = 4;
    }
    put(stored.bytes.data(), code);
    return stored;
  }

  void fill(unsigned char* begin, unsigned char const* end) const {
    for (; end - begin >= 2; begin += 2) put(begin, ' ');
  }

 private:
  void put(unsigned char* at, char32_t unit) const {
    at[m_isBigEndian ? 0 : 1] = static_cast<unsigned char>(unit >> 8U);
    at[m_isBigEndian ? 1 : 0] = static_cast<unsigned char>(unit);
  }

  bool m_isBigEndian;
};

/// The characters of a text, one after the other, as they are stored.
template <typename Encoder>
class CharacterReader {
 public:
  CharacterReader(Encoder const& encoder, std::string_view text, std::size_t at)
      : m_encoder(encoder), m_text(text), m_at(at) {}

  bool isEnd() const { return m_at >= m_text.size(); }
  std::size_t position() const { return m_at; }

  /// The next character; of 0 bytes, and not passed, if it is an error.
  StoredCharacter next() {
    auto const* at = reinterpret_cast<unsigned char const*>(m_text.data()) + m_at;
    Utf8Character const character = readUtf8(at, m_text.size() - m_at);
    if (character.length == 0) return {};
    StoredCharacter const stored = m_encoder.store(character.code);
    if (stored.size != 0) m_at += character.length;
    return stored;
  }

 private:
  Encoder const& m_encoder;
  std::string_view m_text;
  std::size_t m_at;
};

/// Stores a text from the character at `at` on, at `out`.
template <typename Encoder>
EncodeResult storeLeft(Encoder const& encoder, std::string_view text, std::size_t at,
                       bool truncates, unsigned char* out, unsigned char* end) {
  CharacterReader<Encoder> reader(encoder, text, at);
  bool isFull = false;
  while (!reader.isEnd()) {
    StoredCharacter const stored = reader.next();
    if (stored.size == 0) return {ValueError::character, reader.position()};
    isFull |= static_cast<std::size_t>(end - out) < stored.size;
    if (isFull) {
      if (!stored.isBlank && !truncates) return {ValueError::length};
      continue;
    }
    std::copy_n(stored.bytes.begin(), stored.size, out);
    out += stored.size;
  }
  encoder.fill(out, end);
  return {};
}

/// Stores a text so that it ends with the item.
template <typename Encoder>
EncodeResult storeRight(Encoder const& encoder, std::string_view text, bool truncates,
                        unsigned char* out, unsigned char* end) {
  std::size_t size = 0;
  for (CharacterReader<Encoder> reader(encoder, text, 0); !reader.isEnd();) {
    StoredCharacter const stored = reader.next();
    if (stored.size == 0) return {ValueError::character, reader.position()};
    size += stored.size;
  }
  auto const room = static_cast<std::size_t>(end - out);
  CharacterReader<Encoder> reader(encoder, text, 0);
  for (; size > room;) {
    StoredCharacter const dropped = reader.next();
    if (!dropped.isBlank && !truncates) return {ValueError::length};
    size -= dropped.size;
  }
  encoder.fill(out, end - size);
  out = end - size;
  while (!reader.isEnd()) {
    StoredCharacter const stored = reader.next();
    out = std::copy_n(stored.bytes.begin(), stored.size, out);
  }
  return {};
}

// Stores the characters of ASCII at the beginning of a text. Returns how many.
std::size_t storeAscii(std::string_view text, TextBytes const& table, unsigned char* out,
                       std::size_t room) {
  constexpr std::size_t kWord = 8;
  std::size_t const size = std::min(text.size(), room);
  auto const* from = reinterpret_cast<unsigned char const*>(text.data());
  std::size_t at = 0;
  for (; size - at >= kWord; at += kWord) {
    unsigned flags = 0;
    for (std::size_t i = 0; i < kWord; ++i) {
      unsigned const byte = table.ascii[from[at + i]];
      flags |= byte;
      out[at + i] = static_cast<unsigned char>(byte);
    }
    if ((flags & TextBytes::kOther) != 0) break;
  }
  for (; at < size; ++at) {
    unsigned const byte = table.ascii[from[at]];
    if ((byte & TextBytes::kOther) != 0) break;
    out[at] = static_cast<unsigned char>(byte);
  }
  return at;
}

}  // namespace

EncodeResult encodeText(ItemFormat const& format, std::string_view text, TextRules const& rules,
                        unsigned char* bytes) {
  ByteEncoder const encoder(rules);
  unsigned char* const end = bytes + format.size;
  if (format.isJustified) return storeRight(encoder, text, rules.truncates, bytes, end);
  std::size_t const stored = storeAscii(text, *rules.table, bytes, format.size);
  if (stored == text.size()) {
    encoder.fill(bytes + stored, end);
    return {};
  }
  return storeLeft(encoder, text, stored, rules.truncates, bytes + stored, end);
}

EncodeResult encodeNational(ItemFormat const& format, std::string_view text, bool truncates,
                            unsigned char* bytes) {
  UnitEncoder const encoder(format.isBigEndian);
  unsigned char* const end = bytes + format.size;
  return format.isJustified ? storeRight(encoder, text, truncates, bytes, end)
                            : storeLeft(encoder, text, 0, truncates, bytes, end);
}

}  // namespace fdmorph::values
