#include "layout/layout_builder.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <tuple>

#include "layout/occurrence.h"
#include "source/diagnostics.h"
#include "text/letter_case.h"
#include "values/absent_bytes.h"

namespace fdmorph::layout {
namespace {

using compiler::Code;
using compiler::DataItem;
using record::RecordNode;
using record::Role;

bool isPart(Role role) {
  return role == Role::element || role == Role::attribute || role == Role::value;
}

// The item that an item shares its storage with; itself if with none.
DataItem const* areaOf(DataItem const& item) {
  DataItem const* area = &item;
  while (area->redefined != nullptr) area = area->redefined;
  return area;
}

}  // namespace

bool isStored(DataItem const& item) {
  return item.level != compiler::kRenamesLevel && item.level != compiler::kConstantLevel &&
         item.level != compiler::kConditionLevel;
}

Layout::Layout(record::RecordTree const& tree, LayoutRules const& rules,
               values::Values const& values, Names& names, compiler::Diagnostics& diagnostics)
    : m_tree(&tree) {
  LayoutBuilder(*this, rules, values, names, diagnostics).build();
}

void LayoutBuilder::build() {
  makeNodes();
  markRoles();
  findAreas();
  linkSlots();
  findCounters();
  markVarying();
  checkShifting();
  if (m_rules.hasCounts) {
    placeCounts();
    checkCountedSlots();
  }
  if (m_diagnostics.hasErrors()) return;
  AbsentImage image;
  image.fill(0, m_layout.size(), 0);
  fillAbsent(0, 0, image);
  if (m_layout.isSmall()) {
    m_layout.m_absent.assign(m_layout.size(), 0);
    image.write(m_layout.m_absent.data());
  } else {
    m_layout.m_absentImage = std::move(image);
  }
}

void LayoutBuilder::report(std::uint32_t node, std::string text) {
  m_diagnostics.report(Code::layout, m_layout.item(node).item->place, std::move(text));
}

void LayoutBuilder::makeNodes() {
  std::vector<RecordNode> const& items = m_layout.tree().nodes();
  std::vector<Node>& nodes = m_layout.m_nodes;
  nodes.resize(items.size());
  for (std::uint32_t i = 0; i < nodes.size(); ++i) {
    DataItem const& item = *items[i].item;
    Node& node = nodes[i];
    m_nodeOf.emplace(&item, i);
    node.format = item.isGroup() ? values::makeTextFormat(static_cast<std::uint32_t>(item.size))
                                 : values::makeItemFormat(item, m_rules.conventions);
    node.offset = item.offset;
    node.size = item.size;
    node.repeats = item.occurs != nullptr && i != 0;
    if (node.repeats) {
      node.least = item.occurs->least;
      node.most = item.occurs->most;
    }
    if (items[i].parent != record::kNoNode) {
      Node const& group = nodes[items[i].parent];
      node.table = group.repeats ? items[i].parent : group.table;
      node.depth = static_cast<std::uint8_t>(group.depth + (group.repeats ? 1 : 0));
    }
    if (items[i].role == Role::element || items[i].role == Role::attribute) {
      node.name = m_names.add(items[i].namespaceUri, items[i].name);
    }
  }
}

void LayoutBuilder::markRoles() {
  std::vector<Node>& nodes = m_layout.m_nodes;
  for (std::size_t i = nodes.size(); i-- > 0;) {
    RecordNode const& item = m_layout.tree().nodes()[i];
    if (isPart(item.role)) nodes[i].hasRole = true;
    if (nodes[i].hasRole && item.parent != record::kNoNode) nodes[item.parent].hasRole = true;
  }
}

void LayoutBuilder::findAreas() {
  std::vector<RecordNode> const& items = m_layout.tree().nodes();
  std::vector<Node>& nodes = m_layout.m_nodes;
  for (std::uint32_t i = 1; i < items.size(); ++i) {
    DataItem const& item = *items[i].item;
    if (item.redefined == nullptr || !isStored(item)) continue;
    auto first = m_nodeOf.find(areaOf(item));
    if (first == m_nodeOf.end() || first->second == i) continue;
    Node& head = nodes[first->second];
    if (head.area == kNone) {
      head.area = static_cast<std::uint32_t>(m_layout.m_areas.size());
      m_layout.m_areas.emplace_back().views.push_back(first->second);
    }
    nodes[i].area = head.area;
    m_layout.m_areas[head.area].views.push_back(i);
  }
  for (Area& area : m_layout.m_areas) {
    for (std::uint32_t view : area.views) {
      area.size = std::max(area.size, nodes[view].extent());
      if (!nodes[view].hasRole) continue;
      area.hasRole = true;
      if (area.preset == kNone) area.preset = view;
    }
    if (area.preset == kNone) area.preset = area.views.front();
    m_layout.m_variesInSize = true;
  }
}

// Only parts of one name are compared, so the usual record of different names takes a
// look-up each.
void LayoutBuilder::linkSlots() {
  using Key = std::tuple<std::uint32_t, Role, std::uint32_t>;
  std::map<Key, std::vector<std::uint32_t>> byName;
  std::vector<Node>& nodes = m_layout.m_nodes;
  for (std::uint32_t i = 1; i < nodes.size(); ++i) {
    RecordNode const& item = m_layout.item(i);
    if (nodes[i].name == kNone || item.enclosing == record::kNoNode) continue;
    byName[{item.enclosing, item.role, nodes[i].name}].push_back(i);
  }
  for (auto const& [key, parts] : byName) {
    for (std::size_t i = 0; i < parts.size(); ++i) {
      for (std::size_t k = i + 1; k < parts.size(); ++k) {
        if (!areSlotsOfOneName(m_layout, parts[i], parts[k])) continue;
        nodes[parts[i]].laterSlot = parts[k];
        break;
      }
    }
  }
}

void LayoutBuilder::findCounters() {
  for (std::uint32_t i = 1; i < m_layout.m_nodes.size(); ++i) {
    DataItem const& item = *m_layout.item(i).item;
    if (item.occurs && item.occurs->isDepending) findCounter(i);
  }
}

void LayoutBuilder::findCounter(std::uint32_t table) {
  DataItem const& item = *m_layout.item(table).item;
  std::string_view name = item.occurs->depending.name;
  auto given = std::ranges::find_if(m_rules.counters, [&](GivenCounter const& each) {
    return equalsIgnoringCase(each.name, name);
  });
  auto counter = item.dependingOn == nullptr ? m_nodeOf.end() : m_nodeOf.find(item.dependingOn);
  std::uint32_t number = kNone;
  if (counter != m_nodeOf.end()) {
    if (counter->second > table) {
      report(table, "counter " + compiler::quoted(name) + " follows its table");
    }
    number = counterOf(*item.dependingOn);
    m_layout.m_counters[number].node = counter->second;
    m_layout.m_counters[number].hasRole = isPart(m_layout.item(counter->second).role);
  } else if (given != m_rules.counters.end()) {
    number = static_cast<std::uint32_t>(m_layout.m_counters.size());
    m_layout.m_counters.emplace_back().value = given->value;
  } else {
    report(table, "counter " + compiler::quoted(name) +
                      " is not in the record; --counter gives its value");
    return;
  }
  m_layout.m_counters[number].tables.push_back(table);
  m_layout.m_nodes[table].counter = number;
  m_layout.m_variesInSize = true;
}

std::uint32_t LayoutBuilder::counterOf(DataItem const& item) {
  auto [known, isNew] =
      m_counterOf.try_emplace(&item, static_cast<std::uint32_t>(m_layout.m_counters.size()));
  if (isNew) m_layout.m_counters.emplace_back();
  return known->second;
}

void LayoutBuilder::markVarying() {
  std::vector<Node>& nodes = m_layout.m_nodes;
  for (std::size_t i = nodes.size(); i-- > 1;) {
    Node& group = nodes[m_layout.item(static_cast<std::uint32_t>(i)).parent];
    if (nodes[i].counter != kNone) nodes[i].hasCounter = true;
    if (nodes[i].hasCounter) group.hasCounter = true;
    if (nodes[i].hasArea || nodes[i].area != kNone) group.hasArea = true;
  }
}

// Whether a node is a view or in one.
bool LayoutBuilder::isInArea(std::uint32_t node) const {
  for (std::uint32_t each = node; each != record::kNoNode; each = m_layout.item(each).parent) {
    if (m_layout.m_nodes[each].area != kNone) return true;
  }
  return false;
}

void LayoutBuilder::checkShifting() {
  if (m_rules.tables != TableForm::shifted || m_layout.m_counters.empty()) return;
  m_layout.m_shifts = true;
  for (Counter const& counter : m_layout.m_counters) {
    for (std::uint32_t table : counter.tables) {
      if (!isInArea(table)) continue;
      report(table, "table " + compiler::quoted(record::dataNameOf(*m_layout.item(table).item)) +
                        " with DEPENDING ON shares its storage with other items; "
                        "--odo max is required");
    }
  }
  for (std::uint32_t i = 0; i < m_layout.m_nodes.size(); ++i) {
    DataItem const& item = *m_layout.item(i).item;
    if (!item.isSynchronized || item.isGroup()) continue;
    report(i, "SYNCHRONIZED item " + compiler::quoted(record::dataNameOf(item)) +
                  " in a record whose items shift; --odo max is required");
  }
}

void LayoutBuilder::placeCounts() {
  record::CountRecord counts(*m_layout.item(0).item);
  m_layout.m_countSize = counts.size();
  std::vector<record::CountNode> const& nodes = counts.nodes();
  // The groups of counts around a node that are tables, outermost first. An item that
  // repeats has one occurrence of its group of counts for each of its own.
  std::vector<std::pair<std::uint32_t, std::uint64_t>> around;  // end of the group, stride
  for (std::uint32_t i = 0; i < nodes.size(); ++i) {
    while (!around.empty() && around.back().first <= i) around.pop_back();
    record::CountNode const& each = nodes[i];
    std::uint32_t node = m_nodeOf.at(each.item);
    if (each.hasCount) {
      m_layout.m_nodes[node].count = static_cast<std::uint32_t>(m_layout.m_counts.size());
      CountPlace& place = m_layout.m_counts.emplace_back();
      place.offset = each.offset;
      for (auto const& [end, stride] : around) place.strides.push_back(stride);
    }
    if (m_layout.m_nodes[node].repeats) around.emplace_back(each.end, each.groupSize);
  }
}

// Only the last of the slots of a name may be left out. (One that varies by its counter
// is among the rules of parts.)
void LayoutBuilder::checkCountedSlots() {
  for (std::uint32_t i = 1; i < m_layout.m_nodes.size(); ++i) {
    Node const& node = m_layout.m_nodes[i];
    bool isElement = m_layout.item(i).role == Role::element;
    if (!isElement || node.count == kNone || node.laterSlot == kNone) continue;
    report(i, compiler::quoted(record::dataNameOf(*m_layout.item(i).item)) +
                  " has a count and is followed by " +
                  compiler::quoted(record::dataNameOf(*m_layout.item(node.laterSlot).item)) +
                  ", which has the same XML name");
  }
}

// The bytes of one absent occurrence of an item. The recursion is bounded by the number
// of levels.
void LayoutBuilder::fillAbsent(std::uint32_t node, std::uint64_t offset, AbsentImage& image) {
  DataItem const& item = *m_layout.item(node).item;
  if (item.isGroup() && !values::hasInitialValue(item)) {
    fillItems(node, offset, image);
    return;
  }
  std::vector<unsigned char> bytes(m_layout.m_nodes[node].size);
  values::writeAbsent(m_literals, item, m_layout.m_nodes[node].format, bytes.data());
  if (!item.isGroup()) {
    setCounter(node, bytes.data());
  } else if (!m_counterOf.empty()) {
    setCounters(node, bytes.data());
  }
  image.put(offset, bytes);
}

// The counters in a group that has a value of its own.
void LayoutBuilder::setCounters(std::uint32_t group, unsigned char* bytes) {
  std::vector<Node> const& nodes = m_layout.m_nodes;
  for (std::uint32_t i = group + 1; i < m_layout.item(group).end; i = m_layout.item(i).end) {
    DataItem const& item = *m_layout.item(i).item;
    if (!isStored(item) || item.redefined != nullptr) continue;
    unsigned char* begin = bytes + (nodes[i].offset - nodes[group].offset);
    for (std::uint64_t k = 0; k < nodes[i].most; ++k) {
      if (item.isGroup()) {
        setCounters(i, begin + k * nodes[i].size);
      } else {
        setCounter(i, begin + k * nodes[i].size);
      }
    }
  }
}

// A counter is the lower bound of its tables.
void LayoutBuilder::setCounter(std::uint32_t node, unsigned char* bytes) {
  DataItem const& item = *m_layout.item(node).item;
  auto counter = m_counterOf.find(&item);
  if (counter == m_counterOf.end()) return;
  std::uint64_t least = 0;
  for (std::uint32_t table : m_layout.m_counters[counter->second].tables) {
    least = std::max(least, m_layout.m_nodes[table].least);
  }
  values::ItemFormat const& format = m_layout.m_nodes[node].format;
  if (m_literals.values().writeInteger(format, bytes, static_cast<std::int64_t>(least))) return;
  values::writeAbsent(m_literals, item, format, bytes);
}

void LayoutBuilder::fillItems(std::uint32_t group, std::uint64_t offset, AbsentImage& image) {
  std::vector<Node> const& nodes = m_layout.m_nodes;
  for (std::uint32_t i = group + 1; i < m_layout.item(group).end; i = m_layout.item(i).end) {
    if (!isStored(*m_layout.item(i).item)) continue;
    Node const& node = nodes[i];
    std::uint64_t const begin = offset + (node.offset - nodes[group].offset);
    if (node.area != kNone) {
      Area const& area = m_layout.m_areas[node.area];
      if (area.views.front() != i) continue;
      // The first view has its slack bytes; what it does not cover is blank.
      std::uint64_t const covered = std::min(node.extent(), area.size);
      image.fill(begin, covered, 0);
      image.fill(begin + covered, area.size - covered, m_rules.conventions.codePage->blank());
    }
    if (node.most == 0 || node.size == 0) continue;
    fillAbsent(i, begin, image);
    image.repeat(begin, node.size, node.most);
  }
}

}  // namespace fdmorph::layout
