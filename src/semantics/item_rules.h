// Which clauses go together on one item.
#pragma once

#include "semantics/data_item.h"
#include "source/diagnostics.h"

namespace fdmorph::compiler {

/// Gives an item the usage and sign of the group around it, which has its own,
/// where the item says nothing.
void inherit(DataItem& item);

/// Checks an item but for its values; usage and sign of its groups are known.
void checkItem(DataItem const& item, Diagnostics& diagnostics);

/// Checks values of an item, its own or those of a condition; its size is
/// known.
void checkValues(DataItem const& item, std::vector<ValueRange> const& values,
                 Diagnostics& diagnostics);

/// Whether the item is a number without digits behind the decimal point.
bool isInteger(DataItem const& item);

/// What an elementary item holds, as the dictionary tells it.
enum class ItemKind { numeric, numericEdited, alphanumeric, alphanumericEdited, national, group };
ItemKind kindOf(DataItem const& item);

}  // namespace fdmorph::compiler
