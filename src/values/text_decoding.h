// Stored characters as texts.
#pragma once

#include "values/values.h"

namespace fdmorph::values {

/// A run of stored bytes.
struct ByteRun {
  unsigned char const* begin;
  unsigned char const* end;
};

/// The part of a text item that is its value.
[[nodiscard]] ByteRun trimmed(ItemFormat const& format, unsigned char const* bytes, Trim trim,
                              unsigned char blank);

/// The same of a national item.
[[nodiscard]] ByteRun trimmedNational(ItemFormat const& format, unsigned char const* bytes,
                                      Trim trim);

/// Characters of one byte.
[[nodiscard]] DecodeResult decodeBytes(CharacterTable const& table, ByteRun run, char* out);

/// UTF-8; `forbidsControls` where XML forbids characters.
[[nodiscard]] DecodeResult decodeUtf8(CharacterTable const& table, ByteRun run,
                                      bool forbidsControls, char* out);

/// UTF-16.
[[nodiscard]] DecodeResult decodeUtf16(CharacterTable const& table, ByteRun run, bool isBigEndian,
                                       bool forbidsControls, char* out);

}  // namespace fdmorph::values
