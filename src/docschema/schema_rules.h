// What decides how documents look, besides the record.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>

#include "semantics/data_item.h"

namespace fdmorph::docschema {

/// Which blanks texts lose. Items with JUSTIFIED lose those at the other end.
enum class Trim : std::uint8_t { right, both, none };

/// The options with which documents are written.
struct SchemaRules {
  bool hasCounts = false;             ///< counts say how many occurrences there are
  bool omitsEmpty = false;            ///< parts that are as if absent are left out
  bool omitsBlankNumbers = false;     ///< zoned and packed numbers of blanks are left out
  bool hasEditedNumbers = false;      ///< numeric-edited items are numbers
  bool hasFullBinaryRange = false;    ///< binary items hold what their bytes hold
  bool hasHexadecimalFloats = false;  ///< floating items have neither NaN nor infinities
  bool hasQuotedNumbers = false;      ///< numbers are strings in JSON
  bool enumeratesConditions = false;  ///< level 88 restricts the values
  Trim trim = Trim::right;
  std::optional<std::string> wrapper;  ///< the element around all records, if there is one

  /// Items that rules of the user choose: views of areas that redefine each other.
  std::unordered_set<compiler::DataItem const*> chosenViews;
};

}  // namespace fdmorph::docschema
