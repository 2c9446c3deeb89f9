// Directives that stand in the source on a line of their own.
#pragma once

#include <optional>
#include <string_view>

#include "source/source_reader.h"

namespace fdmorph::compiler {

/// What a line of directives asks for.
struct SourceDirective {
  std::optional<Format> format;  ///< the lines after it are in this format
  bool isConditional = false;    ///< conditional compilation: obeyed where the text is used
  bool isKnown = true;           ///< false: it is passed over
};

/// Reads a line that begins, blanks left out, with ">>", or with "$" and the
/// word of a directive: a picture may begin with "$", too. Any other line gives
/// nothing.
std::optional<SourceDirective> readSourceDirective(std::string_view line);

/// The format of this name, in any case.
std::optional<Format> formatOfName(std::string_view name);

}  // namespace fdmorph::compiler
