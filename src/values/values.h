// The values of elementary items: bytes to text and back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "values/character_table.h"
#include "values/conventions.h"
#include "values/item_format.h"
#include "values/sign_bytes.h"

namespace fdmorph::values {

enum class ValueError : std::uint8_t {
  none,
  digit,      ///< a digit or sign that is none
  range,      ///< more digits than the picture
  character,  ///< not in the encoding, malformed, or not allowed in XML
  number,     ///< the text is not a number
  overflow,   ///< too many integer digits, or a negative value without a sign
  precision,  ///< non-zero digits below the last stored position
  length,     ///< the text is too long
};

struct DecodeResult {
  char* end;  ///< of the text
  ValueError error = ValueError::none;
  bool isNumber = false;   ///< the text is a number in JSON, too
  bool isOmitted = false;  ///< the item holds no number, and its part is left out
};

struct EncodeResult {
  ValueError error = ValueError::none;
  std::size_t position = 0;  ///< of a character error: bytes from the beginning of the text
};

/// What is a number in a text.
enum class NumberSyntax : std::uint8_t {
  decimal,
  exponent,  ///< decimal numbers may have an exponent: those of JSON
};

/// Reads and writes the bytes of elementary items. Immutable, so that threads share
/// it. Only edited numbers are allocated for.
class Values {
 public:
  explicit Values(Conventions const& conventions);

  [[nodiscard]] Conventions const& conventions() const { return m_conventions; }

  /// Writes the text of an item to `out`, which has room for maxTextSize(). After
  /// an error the text is of no use.
  template <Target target>
  [[nodiscard]] DecodeResult decode(ItemFormat const& format, unsigned char const* bytes,
                                    char* out) const;

  /// The number of bytes that decode() may write, for any target. The end of the
  /// text is at least 8 bytes before the end of these.
  [[nodiscard]] static std::size_t maxTextSize(ItemFormat const& format);

  /// Writes the bytes of an item. `text` should be UTF-8; where it is not, that is
  /// a character error. After an error the bytes are of no use.
  [[nodiscard]] EncodeResult encode(ItemFormat const& format, std::string_view text,
                                    unsigned char* bytes,
                                    NumberSyntax syntax = NumberSyntax::decimal) const;

  /// The number that an item holds, if it can be read and is an integer.
  [[nodiscard]] std::optional<std::int64_t> readInteger(ItemFormat const& format,
                                                        unsigned char const* bytes) const;

  /// Writes a number; false if the item cannot hold it.
  [[nodiscard]] bool writeInteger(ItemFormat const& format, unsigned char* bytes,
                                  std::int64_t number) const;

  [[nodiscard]] SignBytes const& signBytes() const { return m_signs; }

 private:
  [[nodiscard]] DecodeResult decodeZoned(ItemFormat const& format, unsigned char const* bytes,
                                         char* out) const;
  [[nodiscard]] DecodeResult decodePacked(ItemFormat const& format, unsigned char const* bytes,
                                          char* out) const;
  [[nodiscard]] std::optional<DecodeResult> decodeZonedRow(ItemFormat const& format,
                                                           unsigned char const* bytes,
                                                           char* out) const;
  [[nodiscard]] std::optional<DecodeResult> decodePackedRow(ItemFormat const& format,
                                                            unsigned char const* bytes,
                                                            char* out) const;
  [[nodiscard]] bool encodeRow(ItemFormat const& format, std::string_view text,
                               unsigned char* bytes) const;
  [[nodiscard]] EncodeResult encodeNumber(ItemFormat const& format, std::string_view text,
                                          unsigned char* bytes, NumberSyntax syntax) const;

  Conventions m_conventions;
  SignBytes m_signs;
  std::array<CharacterTable, kTargets> m_characters;  ///< by target
  TextBytes m_textBytes;
  int m_unmappable = -1;  ///< the byte for characters that the encoding lacks; -1: an error
  bool m_isUtf8;
};

}  // namespace fdmorph::values
