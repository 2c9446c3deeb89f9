// The parts of an element as the record has them.
#pragma once

#include <cstdint>
#include <vector>

#include "layout/layout.h"

namespace fdmorph::document {

/// What of an element is written.
enum class PartKind : std::uint8_t { attributes, content };

/// Whether a node is an attribute, or an element or text.
[[nodiscard]] bool isPartOfKind(layout::Layout const& layout, std::uint32_t node, PartKind kind);

/// Whether a node is such a part, or a transparent group with one.
[[nodiscard]] bool hasPartOfKind(layout::Layout const& layout, std::uint32_t node, PartKind kind);

/// Whether a view of an area is such a part, or has one.
[[nodiscard]] bool areaHasPartOfKind(layout::Layout const& layout, std::uint32_t area,
                                     PartKind kind);

/// Whether a node is a view other than the first of its area, or in one.
[[nodiscard]] bool isInLaterView(layout::Layout const& layout, std::uint32_t node);

/// Parts of one element with one name, in the order of the record. Parts of different
/// views are in one group if a part outside of the views has their name.
using SlotGroup = std::vector<std::uint32_t>;

/// The slots of an element: the names of more than one part.
[[nodiscard]] std::vector<SlotGroup> findSlots(layout::Layout const& layout, std::uint32_t element);

/// Whether another slot follows a part.
[[nodiscard]] bool hasLaterSlot(layout::Layout const& layout, std::vector<SlotGroup> const& slots,
                                std::uint32_t node);

}  // namespace fdmorph::document
