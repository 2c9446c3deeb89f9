// Names as "Namespaces in XML" defines them, in UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace fdmorph {

/// Whether a text is an NCName.
[[nodiscard]] bool isNcName(std::string_view text);

/// A text with each character that an NCName cannot have replaced by an underscore,
/// and an underscore before a first character that no NCName begins with. A byte of
/// no character counts as one. The empty text becomes one underscore.
[[nodiscard]] std::string toNcName(std::string_view text);

}  // namespace fdmorph
