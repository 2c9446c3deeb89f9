#include "document/json_program.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "document/left_out.h"
#include "layout/layout_builder.h"
#include "source/diagnostics.h"

namespace fdmorph::document {

using layout::kNone;
using record::RecordNode;
using record::Role;

Program JsonProgram::make() {
  bool hasName = m_set.layouts().size() > 1;
  if (hasName) m_list.write("{\"" + std::string(m_layout.item(0).name) + "\":");
  addValue(0);
  if (hasName) closeWith("},");
  closeWith("\n");
  return m_list.finish();
}

// Ends an object, array or line in the place of the comma after its last value.
void JsonProgram::closeWith(std::string_view end) {
  std::string& pending = m_list.pending();
  if (pending.empty()) {
    m_list.addEnd(Operation::Kind::closeList, end);
    return;
  }
  if (pending.back() == ',') pending.pop_back();
  pending += end;
}

// Whether an element is an object and not a bare text.
bool JsonProgram::isObject(std::uint32_t node) const {
  if (!m_layout.item(node).item->isGroup()) return m_layout[node].size == 0;
  bool hasText = false;
  for (std::uint32_t i = node + 1; i < m_layout.item(node).end; ++i) {
    if (m_layout.item(i).enclosing != node) continue;
    Role role = m_layout.item(i).role;
    if (role == Role::element || role == Role::attribute) return true;
    hasText = hasText || role == Role::value;
  }
  return !hasText;
}

// The value of an element or attribute, and a comma.
void JsonProgram::addValue(std::uint32_t node) {
  if (m_layout.item(node).role == Role::element && isObject(node)) {
    addObject(node);
  } else if (!m_layout.item(node).item->isGroup()) {
    addText(node, 0, false);
  } else {
    Slots none;
    addItems(node, PartKind::content, none);
  }
}

void JsonProgram::addObject(std::uint32_t node) {
  Slots slots{findSlots(m_layout, node), {}, nullptr};
  slots.areWritten.resize(slots.groups.size());
  m_list.write("{");
  if (m_layout.item(node).item->isGroup()) {
    addItems(node, PartKind::attributes, slots);
    addItems(node, PartKind::content, slots);
  }
  closeWith("},");
}

void JsonProgram::addItems(std::uint32_t group, PartKind kind, Slots& slots) {
  for (std::uint32_t i = group + 1; i < m_layout.item(group).end; i = m_layout.item(i).end) {
    if (!layout::isStored(*m_layout.item(i).item)) continue;
    std::uint32_t area = m_layout[i].area;
    bool isHead = area == kNone || m_layout.areas()[area].views.front() == i;
    if (!isHead) continue;
    if (kind == PartKind::content && slots.only == nullptr) addSlots(i, slots);
    if (area == kNone) {
      addItem(i, kind, slots);
    } else {
      addArea(area, kind, slots);
    }
  }
}

void JsonProgram::addArea(std::uint32_t area, PartKind kind, Slots& slots) {
  std::vector<std::uint32_t> views;
  for (std::uint32_t view : m_layout.areas()[area].views) {
    bool isUsed =
        slots.only == nullptr ? hasPartOfKind(m_layout, view, kind) : isIn(*slots.only, view);
    if (isUsed) views.push_back(view);
  }
  if (views.empty()) return;
  std::uint32_t operation = m_list.open(Operation::Kind::area, area);
  for (std::uint32_t view : views) {
    std::uint32_t branch = m_list.open(Operation::Kind::branch, view);
    addItem(view, kind, slots);
    m_list.end(branch);
  }
  m_list.end(operation);
}

// Whether a node or an item in it is one of the slots.
bool JsonProgram::isIn(SlotGroup const& group, std::uint32_t node) const {
  return std::ranges::any_of(
      group, [&](std::uint32_t slot) { return slot >= node && slot < m_layout.item(node).end; });
}

// Adds the arrays of all slots of which the first is `node` or stands in a view of the
// area that begins with it.
void JsonProgram::addSlots(std::uint32_t node, Slots& slots) {
  std::uint32_t area = m_layout[node].area;
  for (std::size_t i = 0; i < slots.groups.size(); ++i) {
    SlotGroup const& group = slots.groups[i];
    bool begins = group.front() == node;
    if (area != kNone) {
      begins = std::ranges::any_of(m_layout.areas()[area].views,
                                   [&](std::uint32_t view) { return isIn(group, view); });
    }
    if (!begins || slots.areWritten[i]) continue;
    slots.areWritten[i] = true;
    m_list.write('"' + memberName(group.front()) + "\":[");
    Slots only{{}, {}, &group};
    addItems(m_layout.item(group.front()).enclosing, PartKind::content, only);
    closeWith("],");
  }
}

void JsonProgram::addItem(std::uint32_t node, PartKind kind, Slots& slots) {
  if (m_layout.item(node).role == Role::transparent) {
    addItems(node, kind, slots);
  } else if (isPartOfKind(m_layout, node, kind)) {
    addMember(node, kind, slots);
  }
}

std::string JsonProgram::memberName(std::uint32_t node) const {
  RecordNode const& item = m_layout.item(node);
  return (item.role == Role::attribute ? "@" : "") + std::string(item.name);
}

void JsonProgram::addMember(std::uint32_t node, PartKind kind, Slots& slots) {
  RecordNode const& item = m_layout.item(node);
  if (kind == PartKind::content && slots.only == nullptr) {
    for (SlotGroup const& group : slots.groups) {
      if (std::ranges::find(group, node) != group.end()) return;  // written as an array
    }
  }
  if (slots.only != nullptr && std::ranges::find(*slots.only, node) == slots.only->end()) return;
  if (item.role == Role::value) {
    bool isBare =
        !isObject(item.enclosing) || m_layout.item(item.enclosing).role == Role::attribute;
    if (!isBare) m_list.write("\"#text\":");
    addText(node, 0, false);
    return;
  }
  bool isSlot = slots.only != nullptr;
  std::string name = isSlot ? std::string() : '"' + memberName(node) + "\":";
  if (m_layout[node].repeats) {
    if (!isSlot) m_list.write(name + '[');
    std::uint32_t table = m_list.open(Operation::Kind::table, node);
    addValue(node);
    m_list.end(table);
    if (!isSlot) closeWith("],");
    return;
  }
  std::uint32_t optional = kNone;
  if (mayBeLeftOut(m_set, m_layout, node)) {
    optional = m_list.open(Operation::Kind::optional, node);
  }
  m_list.write(name);
  if (item.item->isGroup() || m_layout[node].size == 0) {
    addValue(node);
  } else {
    addText(node, name.size(), isLeftOutWithoutNumber(m_layout, node));
  }
  if (optional != kNone) m_list.end(optional);
}

void JsonProgram::addText(std::uint32_t item, std::size_t ownMarkup, bool mayBeLeftOut) {
  values::ItemFormat const& format = m_layout[item].format;
  bool isString = !format.isNumber() || m_rules.quotesNumbers;
  if (isString) m_list.write("\"");
  std::string_view after = isString ? "\"," : ",";
  bool isFixed = !mayHoldNoNumber(m_set, format);
  Operation& operation = m_list.addItem(isString ? Operation::Kind::string : Operation::Kind::value,
                                        item, isFixed ? "" : after);
  operation.ownMarkup = static_cast<std::uint32_t>(ownMarkup + (isString ? 1 : 0));
  operation.mayBeLeftOut = mayBeLeftOut;
  if (isFixed) m_list.write(after);
}

void checkMemberNames(layout::Layout const& layout, compiler::Diagnostics& diagnostics) {
  using Key = std::tuple<std::uint32_t, Role, std::string_view>;
  std::map<Key, std::string_view> namespaces;
  for (RecordNode const& node : layout.tree().nodes()) {
    if (node.role != Role::element && node.role != Role::attribute) continue;
    auto [known, isNew] =
        namespaces.try_emplace({node.enclosing, node.role, node.name}, node.namespaceUri);
    if (isNew || known->second == node.namespaceUri) continue;
    diagnostics.report(compiler::Code::layout, node.item->place,
                       "name " + compiler::quoted(node.name) +
                           " differs from another one by its namespace only, which JSON "
                           "does not have");
  }
}

}  // namespace fdmorph::document
