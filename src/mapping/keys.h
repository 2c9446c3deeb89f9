// The parts of the keys of entries: names with dots between.
#pragma once

#include <string_view>

namespace fdmorph::mapping {

/// The name of the item itself.
inline std::string_view lastPartOf(std::string_view key) {
  return key.substr(key.rfind('.') + 1);  // npos + 1 is 0
}

/// The key of the group around; empty for a record.
inline std::string_view groupOf(std::string_view key) {
  std::size_t const dot = key.rfind('.');
  return dot == key.npos ? std::string_view() : key.substr(0, dot);
}

}  // namespace fdmorph::mapping
