// Floating-point numbers of 4 and 8 bytes, IEEE 754 or hexadecimal.
#pragma once

#include "values/values.h"

namespace fdmorph::values {

/// The shortest text that is read as the same number: NaN, INF, -INF, or what
/// std::to_chars writes.
[[nodiscard]] DecodeResult decodeFloating(ItemFormat const& format, unsigned char const* bytes,
                                          char* out);

/// Writes the number nearest to a text: a decimal number with or without an
/// exponent, and in IEEE 754 NaN, INF or -INF.
[[nodiscard]] EncodeResult encodeFloating(ItemFormat const& format, std::string_view text,
                                          unsigned char* bytes);

/// The value of a floating-point item.
[[nodiscard]] double readFloating(ItemFormat const& format, unsigned char const* bytes);

}  // namespace fdmorph::values
