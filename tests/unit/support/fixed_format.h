// Fixed-format lines for comparison.
#pragma once

#include <sstream>
#include <string>
#include <string_view>

#include "cobol/fixed_format.h"

namespace fdmorph {

inline std::string repeat(std::size_t count, char c) {
  return std::string(count, c);
}
inline std::string blanks(std::size_t count) {
  return repeat(count, ' ');
}

/// The physical lines of a logical line, each with its line end.
inline std::string layOut(std::string_view line) {
  std::ostringstream stream;
  OutputFixedFormatCOBOL(line, stream);
  return stream.str();
}

}  // namespace fdmorph
