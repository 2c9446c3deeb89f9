// The bytes of literals and figurative constants in items.
#pragma once

#include <optional>
#include <string>

#include "semantics/data_item.h"
#include "values/values.h"

namespace fdmorph::values {

/// Writes literals as items are initialised with them: what does not fit is cut off, and
/// JUSTIFIED does not matter. Immutable.
class LiteralBytes {
 public:
  /// With the conventions of `values`, except for those about what does not fit.
  explicit LiteralBytes(Values const& values);

  /// Writes a literal to an item, or to a group as one text. False, and the bytes
  /// are of no use, if the item cannot have it: a text that is no number in a number,
  /// a character that the encoding lacks.
  [[nodiscard]] bool write(ItemFormat const& format, compiler::Literal const& literal,
                           unsigned char* bytes) const;

  /// The bytes of a literal in an item of so many bytes, not cut off and not padded:
  /// as long as a text is, `size` of figurative constants and ALL. Nothing if the
  /// encoding lacks a character.
  [[nodiscard]] std::optional<std::string> textOf(ItemFormat const& format, std::size_t size,
                                                  compiler::Literal const& literal) const;

  /// The decimal number of a literal; nothing if it is none.
  [[nodiscard]] static std::optional<std::string> numberOf(compiler::Literal const& literal);

  [[nodiscard]] Values const& values() const { return m_values; }

 private:
  [[nodiscard]] std::optional<std::string> encoded(ItemFormat const& format,
                                                   std::string_view text) const;
  [[nodiscard]] std::optional<std::string> contentOf(ItemFormat const& format,
                                                     compiler::Literal const& literal) const;

  Values m_values;
};

}  // namespace fdmorph::values
