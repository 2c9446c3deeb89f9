// Options in one text, as a shell would split it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::library {

/// The words of a text: between blanks, tabs and line feeds, with apostrophes,
/// quotation marks and backslashes as in a POSIX shell. Nothing is expanded. Without a
/// value if a quotation does not end.
[[nodiscard]] std::optional<std::vector<std::string>> optionWords(std::string_view text);

}  // namespace fdmorph::library
