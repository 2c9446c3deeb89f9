// ASCII texts in UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace fdmorph::bundle {

inline std::string utf16Little(std::string_view ascii) {
  std::string encoded;
  for (char c : ascii) encoded.append(1, c).append(1, '\0');
  return encoded;
}

inline std::string utf16Big(std::string_view ascii) {
  std::string encoded;
  for (char c : ascii) encoded.append(1, '\0').append(1, c);
  return encoded;
}

}  // namespace fdmorph::bundle
