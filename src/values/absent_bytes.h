// The bytes of items that a document has nothing for.
#pragma once

#include "values/literal_bytes.h"

namespace fdmorph::values {

/// Writes the bytes of an elementary item without a value, by its category: blanks
/// for characters, FILLER and BLANK WHEN ZERO, zero for numbers, x'00' for addresses
/// and indexes.
void writeEmpty(LiteralBytes const& literals, compiler::DataItem const& item,
                ItemFormat const& format, unsigned char* bytes);

/// Writes the VALUE of an elementary item, or the bytes of an item without a value.
/// The values of items that redefine others, and of those in them, do not count.
void writeAbsent(LiteralBytes const& literals, compiler::DataItem const& item,
                 ItemFormat const& format, unsigned char* bytes);

/// Whether an item has a VALUE clause that counts: not in a redefinition.
[[nodiscard]] bool hasInitialValue(compiler::DataItem const& item);

}  // namespace fdmorph::values
