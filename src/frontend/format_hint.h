// Whether a source looks as if it is read in the wrong reference format.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "source/source_reader.h"

namespace fdmorph::compiler {

/// What looks wrong, and where.
struct FormatHint {
  std::size_t offset;     ///< bytes from the beginning of the file to the line
  std::string_view text;  ///< the words of the note
};

/// Looks at the lines of a source that was read in `format` and has errors, or no
/// data. In fixed and variable format, entries and headers that begin in columns 1
/// to 6 are passed over: the source may be in free format. In free format, an
/// indicator in column 7 after a sequence area shows fixed format. Lines after a
/// directive are not looked at, because it may change the format.
[[nodiscard]] std::optional<FormatHint> findFormatHint(std::string_view content, Format format);

}  // namespace fdmorph::compiler
