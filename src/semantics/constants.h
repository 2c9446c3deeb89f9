// Named constants: level 78 and CONSTANT AS.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "semantics/data_item.h"
#include "text/letter_case.h"

namespace fdmorph::compiler {

/// The constants of a program by name. Names and values look at the source.
class Constants {
 public:
  /// Returns false if the name is already defined.
  bool add(std::string_view name, Literal value) {
    return m_values.try_emplace(name, value).second;
  }

  /// The value of a constant; null if there is none of this name.
  [[nodiscard]] Literal const* find(std::string_view name) const {
    auto found = m_values.find(name);
    return found == m_values.end() ? nullptr : &found->second;
  }

 private:
  std::unordered_map<std::string_view, Literal, CaseInsensitiveHash, CaseInsensitiveEqual> m_values;
};

/// The value of digits with an optional plus sign, up to 2 to the power of 53.
[[nodiscard]] std::optional<std::uint64_t> integerOf(std::string_view digits);

/// The value of a constant that is an unsigned integer. A constant with an error
/// has some value, so that its uses are not reported as well.
[[nodiscard]] std::optional<std::uint64_t> integerOf(Literal const& value);

}  // namespace fdmorph::compiler
