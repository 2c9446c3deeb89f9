// Names of parametrised tests.
#pragma once

#include <cctype>
#include <cstddef>
#include <string>
#include <string_view>

namespace fdmorph {

/// A name that a test can have: the index of its parameter, and the letters and
/// digits of the text, with an underscore for each run of other characters.
inline std::string parameterName(std::size_t index, std::string_view text) {
  std::string name = std::to_string(index) + '_';
  for (char c : text) {
    bool isPlain = std::isalnum(static_cast<unsigned char>(c)) != 0;
    if (isPlain || name.back() != '_') name += isPlain ? c : '_';
  }
  return name;
}

}  // namespace fdmorph
