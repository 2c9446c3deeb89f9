// The bytes of an XML file as code units, in which markup can be found and replaced
// whatever the encoding is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fdmorph::bundle {

/// Bytes of a file, from `begin` up to `end`.
struct ByteRange {
  std::size_t begin = 0;
  std::size_t end = 0;

  bool operator==(ByteRange const&) const = default;
};

/// Line and column in characters, both from 1.
struct TextPlace {
  unsigned line = 1;
  unsigned column = 1;
};

/// A place that has been counted to.
struct TextCursor {
  std::size_t offset = 0;
  TextPlace place;
};

/// Looks at the bytes of a file, which must outlive it. ASCII characters are single
/// units: bytes, or pairs of bytes in UTF-16.
class TextUnits {
 public:
  /// What at() gives for a unit that is no ASCII character.
  static constexpr char kOther = '\x7F';

  /// The first bytes tell UTF-16 from other encodings.
  explicit TextUnits(std::string_view bytes);

  /// The size of a unit in bytes.
  [[nodiscard]] std::size_t size() const { return m_form == Form::byte ? 1 : 2; }

  /// The character of the unit at a byte offset; NUL outside the text.
  [[nodiscard]] char at(std::size_t offset) const;

  /// A part of the text, with kOther for what is not ASCII.
  [[nodiscard]] std::string ascii(ByteRange range) const;

  /// ASCII characters in the encoding of the text.
  [[nodiscard]] std::string encode(std::string_view ascii) const;

  /// The place of a byte offset. Of bytes beyond ASCII, each is a character unless it
  /// continues one of UTF-8. Counts from the place of the call before, if it is not
  /// behind that offset.
  [[nodiscard]] TextPlace placeOf(std::size_t offset, TextCursor& cursor) const;

 private:
  enum class Form : std::uint8_t { byte, utf16Big, utf16Little };

  static Form formOf(std::string_view bytes);
  [[nodiscard]] std::size_t markSize() const;
  [[nodiscard]] bool beginsCharacter(std::size_t offset) const;

  std::string_view m_bytes;
  Form m_form;
};

/// Whether a character is white space in XML.
[[nodiscard]] constexpr bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

}  // namespace fdmorph::bundle
