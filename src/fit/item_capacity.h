// What an elementary item can hold.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "fit/decimal_text.h"
#include "semantics/data_item.h"

namespace fdmorph::fit {

/// How an item takes a text.
enum class ItemKind : std::uint8_t {
  empty,       ///< of 0 bytes
  text,        ///< as characters, also of numeric-edited items
  alphabetic,  ///< the same
  number,      ///< as decimal digits or a binary integer
  floating,
};

struct ItemCapacity {
  ItemKind kind = ItemKind::text;
  std::uint64_t length = 0;  ///< of texts: in characters of one byte, or national ones

  // Of numbers. Positions count from the decimal point; those of the highest digit
  // may lie after it (VPP9: -2), those of the lowest before it (99PPP: -3).
  std::int64_t integerDigits = 0;
  std::int64_t fractionDigits = 0;
  bool isSigned = false;
  std::optional<DecimalText> most;   ///< the largest value, where bytes decide and not digits
  std::optional<DecimalText> least;  ///< the same for negative ones

  std::uint64_t precision = 0;  ///< of floating items: decimal digits that are kept
  bool isHexadecimal = false;   ///< the same: without infinities, up to 7.2E75
};

/// The capacity of an elementary item without errors.
[[nodiscard]] ItemCapacity capacityOf(compiler::DataItem const& item, compiler::Dialect dialect);

/// The picture and the usage of an item: "S9(9) COMP-3".
[[nodiscard]] std::string describe(compiler::DataItem const& item);

}  // namespace fdmorph::fit
