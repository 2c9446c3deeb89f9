// The dictionary writer, the last pass: the data of a program as XML.
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

/// The dictionary as a document. Warns of values that XML can't hold; they are
/// left out.
std::string buildDictionary(DataDivision const& data, DictionaryOrder order,
                            Diagnostics& diagnostics);

}  // namespace fdmorph::compiler
