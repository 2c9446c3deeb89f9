// The reserved words of COBOL compilers.
#pragma once

#include <string_view>

namespace fdmorph::copybook {

/// Whether a name, in any case, is a word that a compiler does not take as the name
/// of an item.
[[nodiscard]] bool isReservedWord(std::string_view name);

}  // namespace fdmorph::copybook
