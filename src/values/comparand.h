// Comparisons of items with literals, as COBOL makes them.
#pragma once

#include <compare>
#include <optional>
#include <string>

#include "values/literal_bytes.h"

namespace fdmorph::values {

/// A literal or figurative constant to which an item, or a group as one text, is
/// compared. Numbers compare as numbers. Texts compare as bytes in the order of the
/// encoding; x'00' at the end are blanks, and blanks pad the shorter text. A number
/// compares with figurative constants other than ZERO, with ALL and with texts that
/// are no numbers by its bytes. Immutable; looks at `values`.
class Comparand {
 public:
  Comparand(Values const& values, LiteralBytes const& literals, ItemFormat format,
            compiler::Literal const& literal);

  /// How the item compares to the literal; nothing if it cannot be read, or has no
  /// value that compares to it. `size` is the number of its bytes.
  [[nodiscard]] std::optional<std::strong_ordering> compare(unsigned char const* bytes,
                                                            std::size_t size) const;

 private:
  enum class Mode {
    none,    ///< the literal has no bytes in the encoding
    number,  ///< the literal is m_number
    floating,
    bytes,  ///< as they are
    text,
    national,
  };

  [[nodiscard]] std::optional<std::strong_ordering> compareNumber(unsigned char const* bytes) const;
  [[nodiscard]] std::strong_ordering compareText(unsigned char const* bytes,
                                                 std::size_t size) const;
  void setText(LiteralBytes const& literals, compiler::Literal const& literal);

  Values const* m_values;
  ItemFormat m_format;
  Mode m_mode = Mode::none;
  std::string m_number;
  double m_floating = 0;
  std::string m_text;        ///< the bytes of the literal; one unit of what fills the item
  bool m_isFilling = false;  ///< figurative or ALL: as long as the item
};

/// The same for one comparison.
[[nodiscard]] std::optional<std::strong_ordering> compare(Values const& values,
                                                          ItemFormat const& format,
                                                          unsigned char const* bytes,
                                                          compiler::Literal const& literal);

/// Compares two decimal numbers without exponents.
[[nodiscard]] std::strong_ordering compareDecimals(std::string_view left, std::string_view right);

}  // namespace fdmorph::values
