#include "document/parts.h"

#include <algorithm>
#include <map>

#include "layout/occurrence.h"

namespace fdmorph::document {

using layout::Layout;
using record::RecordNode;
using record::Role;

bool isPartOfKind(Layout const& layout, std::uint32_t node, PartKind kind) {
  Role role = layout.item(node).role;
  if (kind == PartKind::attributes) return role == Role::attribute;
  return role == Role::element || role == Role::value;
}

bool hasPartOfKind(Layout const& layout, std::uint32_t node, PartKind kind) {
  RecordNode const& item = layout.item(node);
  if (item.role != Role::transparent) return isPartOfKind(layout, node, kind);
  for (std::uint32_t i = node + 1; i < item.end; ++i) {
    if (layout.item(i).enclosing == item.enclosing && isPartOfKind(layout, i, kind)) return true;
  }
  return false;
}

bool areaHasPartOfKind(Layout const& layout, std::uint32_t area, PartKind kind) {
  return std::ranges::any_of(layout.areas()[area].views,
                             [&](std::uint32_t view) { return hasPartOfKind(layout, view, kind); });
}

bool isInLaterView(Layout const& layout, std::uint32_t node) {
  for (std::uint32_t each = node; each != record::kNoNode; each = layout.item(each).parent) {
    std::uint32_t area = layout[each].area;
    if (area != layout::kNone && layout.areas()[area].views.front() != each) return true;
  }
  return false;
}

std::vector<SlotGroup> findSlots(Layout const& layout, std::uint32_t element) {
  std::map<std::uint32_t, SlotGroup> byName;
  for (std::uint32_t i = element + 1; i < layout.item(element).end; ++i) {
    if (layout.item(i).enclosing != element || layout.item(i).role != Role::element) continue;
    byName[layout[i].name].push_back(i);
  }
  std::vector<SlotGroup> slots;
  for (auto& [name, nodes] : byName) {
    bool areSlots = false;
    for (std::size_t i = 1; i < nodes.size() && !areSlots; ++i) {
      for (std::size_t k = 0; k < i && !areSlots; ++k) {
        areSlots = areSlotsOfOneName(layout, nodes[k], nodes[i]);
      }
    }
    if (areSlots) slots.push_back(std::move(nodes));
  }
  return slots;
}

bool hasLaterSlot(Layout const& layout, std::vector<SlotGroup> const& slots, std::uint32_t node) {
  for (SlotGroup const& group : slots) {
    if (std::ranges::find(group, node) == group.end()) continue;
    return std::ranges::any_of(group, [&](std::uint32_t other) {
      return other > node && areSlotsOfOneName(layout, node, other);
    });
  }
  return false;
}

}  // namespace fdmorph::document
