// Compiler directives in the source: lines that begin with ">>" or "$".
#pragma once

#include <optional>
#include <string_view>

#include "source/source_reader.h"

namespace fdmorph::compiler {

/// What a directive line says.
struct SourceDirective {
  std::optional<Format> format;  ///< the format of the following lines, if it changes
  bool isConditional = false;    ///< conditional compilation: evaluated where the text is used
  bool isKnown = true;           ///< false: the directive is ignored
};

/// Reads a line. A directive begins, after blanks, with ">>", or with "$" and
/// the word of a directive, since a picture may begin with "$" too. Returns
/// nothing for other lines.
[[nodiscard]] std::optional<SourceDirective> readSourceDirective(std::string_view line);

/// The format called FIXED, VARIABLE or FREE, in any letter case.
[[nodiscard]] std::optional<Format> formatOfName(std::string_view name);

}  // namespace fdmorph::compiler
