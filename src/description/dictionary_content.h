// What of the data the dictionary has: the records, and one view of storage that
// several items share.
//
// A reader of the dictionary makes a schema of its first record, does not convert
// redefinitions, and makes an invalid schema of conditions. So a user can choose,
// and is warned of what a reader would lose.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "semantics/data_item.h"
#include "source/diagnostics.h"
#include "syntax/item_tree.h"

namespace fdmorph::compiler {

enum class DictionaryOrder {
  workingStorageFirst,
  filesFirst,
};

/// The choices of the user, by directives. Names are compared in any case.
struct DictionaryChoice {
  std::vector<std::string> records;  ///< in the order of the dictionary; empty: all
  std::optional<Section> section;    ///< the only section; nothing: working storage and files
  std::vector<std::string> views;    ///< items in place of those that they redefine
  bool hasConditions = true;
  bool hasValues = true;
  bool hasFillerNames = false;  ///< items without a name are called FILLER-1, FILLER-2, ...
};

/// The choices, resolved. It looks at items of the data.
struct DictionaryContent {
  std::vector<DataItem const*> records;  ///< the data items, in order
  bool hasFiles = false;                 ///< the files are described as well
  bool areRecordsChosen = false;         ///< by their names
  bool hasConditions = true;
  bool hasValues = true;
  bool hasFillerNames = false;

  /// The item that is described in place of a redefined one and of all items that
  /// redefine that, by the redefined one.
  std::unordered_map<DataItem const*, DataItem const*> views;

  bool isEmpty() const { return records.empty() && !hasFiles; }
};

/// Resolves a choice. Reports names of records and views that do not exist, and
/// notes the items that a chosen view leaves out.
[[nodiscard]] DictionaryContent chooseContent(DataDivision const& data,
                                              DictionaryChoice const& choice,
                                              Diagnostics& diagnostics);

/// Warns of what a reader of the dictionary loses, and names the directive that
/// changes it. The content must not be empty.
void warnOfLosses(DataDivision const& data, DictionaryContent const& content, DictionaryOrder order,
                  Diagnostics& diagnostics);

}  // namespace fdmorph::compiler
