// The dictionary writer, the last pass: writes the data of a program as XML.
//
// It runs only on data that was checked without errors.
#pragma once

#include <cstddef>
#include <string>

#include "description/dictionary_content.h"
#include "semantics/data_item.h"
#include "source/diagnostics.h"

namespace fdmorph::compiler {

/// The largest size in bytes of the texts of all values in a dictionary.
inline constexpr std::size_t kMaxValueText = std::size_t{1} << 30;

/// The dictionary as an XML document. Values that it cannot hold are left out with
/// a warning. If the texts of all values exceed `maxValueText` bytes, that is an
/// error, and the result is empty.
[[nodiscard]] std::string buildDictionary(DataDivision const& data,
                                          DictionaryContent const& content, DictionaryOrder order,
                                          Diagnostics& diagnostics,
                                          std::size_t maxValueText = kMaxValueText);

}  // namespace fdmorph::compiler
