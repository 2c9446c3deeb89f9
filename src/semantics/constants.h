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

class Constants {
 public:
  /// False if the name is taken.
  bool add(std::string_view name, Literal value) {
    return m_values.try_emplace(name, value).second;
  }

  /// Null if there is no such constant.
  Literal const* find(std::string_view name) const {
    auto found = m_values.find(name);
    return found == m_values.end() ? nullptr : &found->second;
  }

 private:
  std::unordered_map<std::string_view, Literal, CaseInsensitiveHash, CaseInsensitiveEqual> m_values;
};

/// The number that unsigned digits stand for, if it is not too large to count
/// bytes with.
std::optional<std::uint64_t> integerOf(std::string_view digits);

/// The value of a constant that is an unsigned integer; of a broken one, any.
std::optional<std::uint64_t> integerOf(Literal const& value);

}  // namespace fdmorph::compiler
