// The rules on the clauses of one item.
#pragma once

#include "semantics/data_item.h"
#include "source/diagnostics.h"

namespace fdmorph::compiler {

/// Sets the effective usage and sign of an item: its own, or else those of the
/// group around it, which must be set already.
void inherit(DataItem& item);

/// Gives an elementary item that has VALUE but no PICTURE the picture of its
/// value: `05 A VALUE "abc"` is X(3), and `05 A VALUE ZERO` is 9. As in GnuCOBOL,
/// neither a numeric literal nor levels 01 and 77 imply a picture. `data` is the
/// data division that the item belongs to.
void implyPicture(DataItem& item, DataDivision& data);

/// Reports clauses of an item that do not go together. Its effective usage and
/// sign must be set. Values are not checked.
void checkItem(DataItem const& item, Diagnostics& diagnostics);

/// Reports values that do not fit an item: its own or those of a condition. The
/// size of the item must be set.
void checkValues(DataItem const& item, std::vector<ValueRange> const& values,
                 Diagnostics& diagnostics);

/// Whether the item is a number without digits after the decimal point.
[[nodiscard]] bool isInteger(DataItem const& item);

/// The kind of an item in the dictionary.
enum class ItemKind { numeric, numericEdited, alphanumeric, alphanumericEdited, national, group };
[[nodiscard]] ItemKind kindOf(DataItem const& item);

}  // namespace fdmorph::compiler
