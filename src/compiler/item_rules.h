// Which clauses go together on one item.
#pragma once

#include "compiler/data_item.h"
#include "compiler/diagnostics.h"

namespace fdmorph::compiler {

/// Gives an item the usage and sign of the group around it, which has its own,
/// where the item says nothing.
void inherit(DataItem& item);

/// Checks an item and its conditions; usage and sign of its groups are known.
void checkItem(DataItem const& item, Diagnostics& diagnostics);

/// Whether the item is a number without digits behind the decimal point.
bool isInteger(DataItem const& item);

/// What an elementary item holds, as the dictionary tells it.
enum class ItemKind { numeric, numericEdited, alphanumeric, alphanumericEdited, national, group };
ItemKind kindOf(DataItem const& item);

}  // namespace fdmorph::compiler
