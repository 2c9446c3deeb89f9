// Where a character of the source stands.
#pragma once

#include <cstdint>

namespace fdmorph::compiler {

/// A character: the text that it is read from, counted in the order of reading
/// (0 is no text), and its byte in the file. Lines and columns are worked out
/// of it only for a diagnostic.
struct Place {
  std::uint32_t text = 0;
  std::uint32_t offset = 0;

  bool isKnown() const { return text != 0; }
  bool operator==(Place const& other) const = default;
};

}  // namespace fdmorph::compiler
