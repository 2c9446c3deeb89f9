#include "cobol/decimal_text.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <string>

namespace fdmorph {

int decimalValue(std::string_view text) {
  long value = std::strtol(std::string(text).c_str(), nullptr, 10);
  return static_cast<int>(
      std::clamp<long>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

}  // namespace fdmorph
