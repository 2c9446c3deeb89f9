#include "layout/occurrence.h"

#include <algorithm>

namespace fdmorph::layout {
namespace {

using record::RecordNode;
using record::Role;

// The number of occurrences of all slots of a name before this one. Parts of different
// views are no slots of each other.
struct Slots {
  std::uint64_t before = 0;
  bool areSeveral = false;
};

Slots findSlots(Layout const& layout, std::uint32_t node) {
  Slots slots;
  RecordNode const& item = layout.item(node);
  if (item.enclosing == record::kNoNode) return slots;
  for (std::uint32_t i = item.enclosing + 1; i < layout.item(item.enclosing).end; ++i) {
    if (i == node || layout[i].name != layout[node].name) continue;
    if (!areSlotsOfOneName(layout, node, i)) continue;
    slots.areSeveral = true;
    if (i < node) slots.before += layout[i].most;
  }
  return slots;
}

// The element of a value item, or the item itself.
std::uint32_t namedNode(Layout const& layout, std::uint32_t node) {
  RecordNode const& item = layout.item(node);
  return item.role == Role::value ? item.enclosing : node;
}

std::string stepOf(Layout const& layout, std::uint32_t node, Occurrence const& occurrence,
                   bool isWhole) {
  RecordNode const& item = layout.item(node);
  std::string step;
  if (item.role == Role::element || item.role == Role::attribute) {
    if (item.role == Role::attribute) step += '@';
    step += item.name;
  } else {
    step += record::dataNameOf(*item.item);
  }
  Slots slots = item.role == Role::element ? findSlots(layout, node) : Slots();
  if (isWhole || (!layout[node].repeats && !slots.areSeveral)) return step;
  std::uint64_t number = slots.before + 1;
  if (layout[node].repeats) number += occurrence.at[layout[node].depth];
  return step + '[' + std::to_string(number) + ']';
}

}  // namespace

bool areSlotsOfOneName(Layout const& layout, std::uint32_t one, std::uint32_t other) {
  RecordNode const& a = layout.item(one);
  RecordNode const& b = layout.item(other);
  if (a.role != b.role || a.enclosing != b.enclosing) return false;
  if (layout[one].name != layout[other].name) return false;
  // Below the nearest group around both, the items that lead to them must not be views
  // of one area.
  std::uint32_t x = one;
  std::uint32_t y = other;
  while (layout.item(x).parent != layout.item(y).parent) {
    if (layout.item(x).parent > layout.item(y).parent) {
      x = layout.item(x).parent;
    } else {
      y = layout.item(y).parent;
    }
  }
  return layout[x].area == kNone || layout[x].area != layout[y].area;
}

std::uint64_t offsetOf(Layout const& layout, std::uint32_t node, Occurrence const& occurrence) {
  std::uint64_t offset = layout[node].offset;
  if (layout[node].repeats) offset += layout[node].size * occurrence.at[layout[node].depth];
  for (std::uint32_t table = layout[node].table; table != kNone; table = layout[table].table) {
    offset += layout[table].size * occurrence.at[layout[table].depth];
  }
  return offset;
}

std::uint64_t countOffsetOf(Layout const& layout, std::uint32_t node,
                            Occurrence const& occurrence) {
  CountPlace const& place = layout.counts()[layout[node].count];
  std::uint64_t offset = place.offset;
  for (std::size_t i = 0; i < place.strides.size(); ++i) {
    offset += place.strides[i] * occurrence.at[i];
  }
  return offset;
}

std::string pathOf(Layout const& layout, std::uint32_t node, Occurrence const& occurrence,
                   bool isWhole) {
  std::uint32_t at = namedNode(layout, node);
  bool hasRole = layout.item(at).role == Role::element || layout.item(at).role == Role::attribute;
  std::vector<std::string> steps{stepOf(layout, at, occurrence, isWhole)};
  while (true) {
    // An item without a role stands below the groups of the source that are elements.
    at = hasRole ? layout.item(at).enclosing : layout.item(at).parent;
    while (!hasRole && at != record::kNoNode && layout.item(at).role == Role::transparent) {
      at = layout.item(at).parent;
    }
    if (at == record::kNoNode) break;
    hasRole = layout.item(at).role == Role::element || layout.item(at).role == Role::attribute;
    steps.push_back(stepOf(layout, at, occurrence, false));
  }
  std::string path;
  std::ranges::reverse(steps);
  for (std::string const& step : steps) {
    if (!path.empty()) path += '/';
    path += step;
  }
  return path;
}

}  // namespace fdmorph::layout
