// Tables of names, sorted in the source, for binary search.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace fdmorph {

/// A name and what it stands for.
template <typename Value>
struct NameEntry {
  std::string_view name;
  Value value;
};

/// A constant table of distinct names in ascending byte order. A static_assert
/// beside the table checks the order:
///
///     constexpr NameTable<int, 2> kTable{{{{"one", 1}, {"two", 2}}}};
///     static_assert(kTable.isSorted());
template <typename Value, std::size_t Size>
struct NameTable {
  std::array<NameEntry<Value>, Size> entries;

  constexpr bool isSorted() const {
    for (std::size_t i = 1; i < Size; ++i) {
      if (!(entries[i - 1].name < entries[i].name)) return false;
    }
    return true;
  }

  /// The length in bytes of the longest name.
  constexpr std::size_t maxLength() const {
    std::size_t length = 0;
    for (NameEntry<Value> const& each : entries) length = std::max(length, each.name.size());
    return length;
  }

  /// The value of `name`, or `otherwise` if the table lacks it.
  constexpr Value find(std::string_view name, Value otherwise) const {
    auto found = std::lower_bound(
        entries.begin(), entries.end(), name,
        [](NameEntry<Value> const& entry, std::string_view wanted) { return entry.name < wanted; });
    return found != entries.end() && found->name == name ? found->value : otherwise;
  }
};

/// Makes a table of as many entries as are given: `makeNameTable<int>({{"one",
/// 1}, {"two", 2}})`.
template <typename Value, std::size_t Size>
constexpr NameTable<Value, Size> makeNameTable(NameEntry<Value> const (&entries)[Size]) {
  NameTable<Value, Size> table{};
  std::copy(std::begin(entries), std::end(entries), table.entries.begin());
  return table;
}

}  // namespace fdmorph
