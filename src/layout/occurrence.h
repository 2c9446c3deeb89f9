// One occurrence of an item: the numbers of the occurrences of all tables around it.
#pragma once

#include <array>
#include <cstdint>

#include "layout/layout.h"

namespace fdmorph::layout {

/// The numbers of occurrences, from 0, outermost table first. An item at depth n looks
/// at the first n.
struct Occurrence {
  std::array<std::uint64_t, kMaxDepth> at{};
};

/// The offset of an item in the largest form of the record, in bytes.
[[nodiscard]] std::uint64_t offsetOf(Layout const& layout, std::uint32_t node,
                                     Occurrence const& occurrence);

/// The offset of a count in the count record, in bytes. The node has one.
[[nodiscard]] std::uint64_t countOffsetOf(Layout const& layout, std::uint32_t node,
                                          Occurrence const& occurrence);

/// Whether two parts of one element have one name, so that the elements of this name
/// fill them one after the other. Parts of different views of one area are not such.
[[nodiscard]] bool areSlotsOfOneName(Layout const& layout, std::uint32_t one, std::uint32_t other);

/// The path of an item in messages: XML names, "@name" of attributes, a value item as
/// its element, items without a role by data name, and [k] on each part that repeats,
/// counted over all slots of its name. The item's own [k] is left out with `isWhole`.
[[nodiscard]] std::string pathOf(Layout const& layout, std::uint32_t node,
                                 Occurrence const& occurrence, bool isWhole = false);

}  // namespace fdmorph::layout
