#include "document/left_out.h"

#include "document/parts.h"

namespace fdmorph::document {
namespace {

using layout::Layout;
using layout::RecordSet;
using record::Role;

bool isFollowedBySlot(Layout const& layout, std::uint32_t node) {
  return layout[node].laterSlot != layout::kNone;
}

// Whether it does not matter that a single part is missing. A schema decides if it
// knows the part.
bool isOptional(RecordSet const& set, Layout const& layout, std::uint32_t node) {
  record::PartDemand const* demand = layout.tree().demandOf(node);
  return demand == nullptr ? set.rules().omitsEmpty : !demand->together.empty();
}

// The same of the last occurrences of a table.
bool areOptional(RecordSet const& set, Layout const& layout, std::uint32_t table) {
  record::PartDemand const* demand = layout.tree().demandOf(table);
  if (demand == nullptr) return set.rules().omitsEmpty;
  return !demand->together.empty() || demand->least < layout[table].most;
}

}  // namespace

bool mayBeLeftOut(RecordSet const& set, Layout const& layout, std::uint32_t node) {
  Role role = layout.item(node).role;
  bool isPart = role == Role::element || role == Role::attribute;
  if (!isPart || layout[node].repeats || node == 0) return false;
  if (set.rules().hasCounts) return layout[node].count != layout::kNone;
  return isOptional(set, layout, node) && !isInLaterView(layout, node) &&
         !isFollowedBySlot(layout, node);
}

bool mayEndEarly(RecordSet const& set, Layout const& layout, std::uint32_t table) {
  return areOptional(set, layout, table) && !set.rules().hasCounts &&
         layout[table].counter == layout::kNone && !isInLaterView(layout, table) &&
         !isFollowedBySlot(layout, table);
}

bool mayHoldNoNumber(RecordSet const& set, values::ItemFormat const& format) {
  return set.rules().conventions.blankNumbers == values::BlankNumbers::omit &&
         (format.kind == values::Kind::zoned || format.kind == values::Kind::packed);
}

bool isLeftOutWithoutNumber(Layout const& layout, std::uint32_t node) {
  if (node == 0 || layout[node].repeats) return false;
  return layout.item(node).role != Role::value && !isFollowedBySlot(layout, node);
}

}  // namespace fdmorph::document
