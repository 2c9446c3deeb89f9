// Data descriptions as COBOL text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "copybook/line_layout.h"
#include "semantics/data_item.h"

namespace fdmorph::copybook {

/// How a copybook is written.
struct CopybookForm {
  bool hasXmlClauses = true;  ///< the enhanced form; otherwise the plain one
  LineForm lines = LineForm::fixed;
  std::string outerName = {};  ///< of a level 01 group around the items; empty: none
  /// Names that stand beside the copybook: references to items of these names are
  /// qualified.
  std::vector<std::string> otherNames = {};
};

/// A new number of occurrences. Without DEPENDING ON only `most` is written, and
/// nothing if it is 1.
struct OccursRange {
  std::uint64_t least;
  std::uint64_t most;
};

/// An item of characters that is written before another one, which redefines it.
struct StorageArea {
  std::string name;
  std::uint64_t size;  ///< in bytes
};

/// What is written differently from the source for one item.
struct ItemChange {
  std::string name = {};     ///< empty: the same; references follow it
  std::string picture = {};  ///< empty: the same
  /// In place of the usage, without UNSIGNED and SIGN; nothing: the same. One that
  /// goes without a picture is written without.
  std::optional<compiler::Usage> usage = std::nullopt;
  std::optional<OccursRange> occurs = std::nullopt;
  /// The name in REDEFINES, empty for no clause; nothing: the same.
  std::optional<std::string> redefines = std::nullopt;
  std::optional<StorageArea> area = std::nullopt;
  std::vector<std::string> indexes = {};   ///< INDEXED BY; empty: the same
  std::vector<std::string> comments = {};  ///< each on lines of its own before the item
  bool isLeftOut = false;                  ///< with all that is in it
  bool hasNoValue = false;                 ///< VALUE is not written
};

/// By item; conditions are items as well.
using ItemChanges = std::unordered_map<compiler::DataItem const*, ItemChange>;

/// The text of records or of single items: every clause of their data descriptions
/// that decides on the storage, the values or the documents. Compiled again it has
/// the same items with the same layout, apart from the changes. A record that the
/// source only implies is not written, its items are.
///
/// REDEFINES names the first of the items that share their storage. What follows
/// from COPY, REPLACE and constants is written instead of these. Not written are
/// EXTERNAL, GLOBAL, BASED and VOLATILE, ANY LENGTH (the picture is) and the types
/// of pointers. `items` are without errors; their data must live during the call.
[[nodiscard]] std::string writeCopybook(std::vector<compiler::DataItem const*> const& items,
                                        CopybookForm const& form, ItemChanges const& changes);

}  // namespace fdmorph::copybook
