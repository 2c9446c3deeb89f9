// What a misspelt word of a mapping file is meant for.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "mapping/described_data.h"

namespace fdmorph::mapping {

/// A text without the white space at its ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// The only one of `words` that is near to `word`; empty if there is none. Letter
/// case and white space at the ends do not matter.
[[nodiscard]] std::string_view nearest(std::string_view word,
                                       std::span<std::string_view const> words);

/// "; did you mean 'NAME'?" for the name of an element, or nothing.
[[nodiscard]] std::string suggestElement(std::string_view name);

/// The same for the name of a type.
[[nodiscard]] std::string suggestType(std::string_view name);

/// Whether a name is one of the built-in types (XML Schema: Datatypes) of elements.
[[nodiscard]] bool isBuiltinType(std::string_view name);

/// Finds the key that a key is meant for.
class KeySuggestions {
 public:
  /// `data` must outlive this object.
  explicit KeySuggestions(DescribedData const& data);

  /// The index of the item, or kNone.
  [[nodiscard]] std::size_t suggest(std::string_view key);

 private:
  using Names = std::unordered_map<std::string, std::vector<std::size_t>>;

  std::size_t byPath(std::string_view key);
  std::size_t byName(std::string_view key);

  DescribedData const& m_data;
  Names m_keys;                                      // in upper case
  Names m_names;                                     // the last parts of the keys, in upper case
  std::vector<std::vector<std::size_t>> m_children;  // by item; the last: those of no item
  std::size_t m_comparisons = 0;
};

}  // namespace fdmorph::mapping
