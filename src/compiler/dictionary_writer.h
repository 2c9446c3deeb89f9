// The dictionary writer, the last pass: writes the data of a program as XML.
//
// It runs only on data that was checked without errors.
#pragma once

#include <string>

#include "semantics/data_item.h"
#include "source/diagnostics.h"

namespace fdmorph::compiler {

enum class DictionaryOrder {
  workingStorageFirst,
  filesFirst,
};

/// Whether a dictionary of this data would have items. The sections that a caller
/// shares with the program, local storage and linkage, are not part of it.
[[nodiscard]] bool hasDictionaryItems(DataDivision const& data);

/// The dictionary as an XML document. Values that it cannot hold are left out with
/// a warning.
[[nodiscard]] std::string buildDictionary(DataDivision const& data, DictionaryOrder order,
                                          Diagnostics& diagnostics);

}  // namespace fdmorph::compiler
