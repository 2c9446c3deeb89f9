// What is said about values that cannot be read or written.
#pragma once

#include <string>
#include <string_view>

#include "values/values.h"

namespace fdmorph::values {

/// The code of an error in messages: "digit".
[[nodiscard]] std::string_view codeOf(ValueError error);

/// What is wrong with the bytes of an item: "invalid digit".
[[nodiscard]] std::string_view describeBytes(ValueError error);

/// What is wrong with a text for an item: "'12x' is not a number". Long texts are
/// shortened, and bytes that are not UTF-8 replaced.
[[nodiscard]] std::string describeText(EncodeResult const& result, ItemFormat const& format,
                                       std::string_view text);

}  // namespace fdmorph::values
