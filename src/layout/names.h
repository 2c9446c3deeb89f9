// The names of the elements and attributes of a document, as numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace fdmorph::layout {

/// No name; in a layout also no counter, area or count.
inline constexpr std::uint32_t kNone = UINT32_MAX;

/// The names of elements and attributes in a document. Each has a number.
class Names {
 public:
  struct Name {
    std::string namespaceUri;
    std::string local;
    bool operator==(Name const&) const = default;
  };

  /// The number of a name, which is added if it is new.
  std::uint32_t add(std::string_view namespaceUri, std::string_view local);

  /// The number of a name, or kNone.
  [[nodiscard]] std::uint32_t find(std::string_view namespaceUri, std::string_view local) const;

  [[nodiscard]] Name const& operator[](std::uint32_t number) const { return m_names[number]; }
  [[nodiscard]] std::size_t size() const { return m_names.size(); }

 private:
  void place(std::uint32_t number);

  std::vector<Name> m_names;
  std::vector<std::uint32_t> m_slots;  // an open hash table of numbers
};

}  // namespace fdmorph::layout
