// Where the parts of a tag are in the text of a file that a parser has accepted.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bundle/text_units.h"

namespace fdmorph::bundle {

/// An attribute as it is written.
struct AttributeText {
  std::string name;  ///< with its prefix
  ByteRange value;   ///< without the quotes
};

/// A start tag as it is written.
struct TagText {
  std::string name;                       ///< with its prefix
  std::size_t end = 0;                    ///< of its last attribute, or of its name
  std::vector<AttributeText> attributes;  ///< in their order

  /// The value of an attribute; nothing if the tag has none of that name.
  [[nodiscard]] std::optional<ByteRange> valueOf(std::string_view attribute) const;
};

/// The start tag at a byte offset; nothing if there is none, as where the parser is in
/// the text of an entity.
[[nodiscard]] std::optional<TagText> readTag(TextUnits const& text, std::size_t offset);

/// The literal, without its quotes, that ends before a byte offset and the white space
/// there; nothing if there is none.
[[nodiscard]] std::optional<ByteRange> literalBefore(TextUnits const& text, std::size_t offset);

/// The words of a value that is a list.
[[nodiscard]] std::vector<ByteRange> wordsOf(TextUnits const& text, ByteRange value);

}  // namespace fdmorph::bundle
