#include "document/encode_plan.h"

#include <algorithm>
#include <cstring>
#include <map>

#include "layout/layout_builder.h"

namespace fdmorph::document {
namespace {

using layout::isStored;
using layout::kNone;
using layout::Node;
using record::RecordNode;
using record::Role;

std::uint32_t sizeOf(auto const& table) {
  return static_cast<std::uint32_t>(table.size());
}

std::uint64_t placeKey(std::uint32_t element, std::uint32_t key, bool isAttribute) {
  return (static_cast<std::uint64_t>(element) << 32U) | (static_cast<std::uint64_t>(key) << 1U) |
         (isAttribute ? 1U : 0U);
}

}  // namespace

bool PlannedArea::testsItself() const {
  return std::ranges::find(testedAreas, area) != testedAreas.end();
}

EncodePlan::EncodePlan(layout::RecordSet const& set, std::uint32_t record, NameNumbers const& index)
    : m_set(&set),
      m_layout(&set.layouts()[record]),
      m_names(&index),
      m_literals(set.values()),
      m_record(record),
      m_elementOf(m_layout->nodes().size(), kNone),
      m_counterOf(m_layout->nodes().size(), kNone) {
  for (std::uint32_t i = 0; i < m_layout->counters().size(); ++i) {
    std::uint32_t node = m_layout->counters()[i].node;
    if (node != kNone) m_counterOf[node] = i;
  }
  for (std::uint32_t i = 0; i < m_layout->nodes().size(); ++i) {
    Role role = m_layout->item(i).role;
    if (role == Role::element || role == Role::attribute) addElement(i);
  }
}

std::uint32_t EncodePlan::keyOf(std::uint32_t node) const {
  return m_names->numberOf((*m_layout)[node].name);
}

std::uint32_t EncodePlan::findName(std::uint32_t node, std::uint32_t key, bool isAttribute,
                                   std::uint32_t guess) const {
  std::uint32_t number = m_elementOf[node];
  Range range = m_elements[number].names;
  for (std::uint32_t at = guess; at < range.size() && at < guess + 2; ++at) {
    PlannedName const& name = names[range.begin + at];
    if (name.key == key && name.isAttribute == isAttribute) return at;
  }
  auto found = m_places.find(placeKey(number, key, isAttribute));
  return found == m_places.end() ? kNone : found->second;
}

void EncodePlan::addElement(std::uint32_t node) {
  std::uint32_t number = sizeOf(m_elements);
  m_elementOf[node] = number;
  PlannedElement element;
  element.parts.begin = sizeOf(parts);
  element.areas.begin = sizeOf(areas);
  element.texts.begin = sizeOf(texts);
  element.tables.begin = sizeOf(tables);
  element.counts.begin = sizeOf(counts);
  if (m_layout->item(node).item->isGroup()) {
    addItems(element, node, kNone);
  } else if ((*m_layout)[node].size > 0) {
    texts.push_back({node, kNone});
  }
  element.parts.end = sizeOf(parts);
  element.areas.end = sizeOf(areas);
  element.texts.end = sizeOf(texts);
  element.tables.end = sizeOf(tables);
  element.counts.end = sizeOf(counts);
  nameParts(element, number);
  nameViews(element);
  m_elements.push_back(element);
}

// The recursion through groups is bounded by the number of levels.
void EncodePlan::addItems(PlannedElement& element, std::uint32_t group, std::uint32_t view) {
  for (std::uint32_t i = group + 1; i < m_layout->item(group).end; i = m_layout->item(i).end) {
    if (!isStored(*m_layout->item(i).item)) continue;
    std::uint32_t area = (*m_layout)[i].area;
    if (area == kNone) {
      addItem(element, i, view);
    } else if (m_layout->areas()[area].views.front() == i) {
      addArea(element, area, view);
    }
  }
}

void EncodePlan::addItem(PlannedElement& element, std::uint32_t node, std::uint32_t view) {
  RecordNode const& item = m_layout->item(node);
  Node const& planned = (*m_layout)[node];
  bool isPart = item.role == Role::element || item.role == Role::attribute;
  if (planned.counter != kNone) tables.push_back({node, view});
  if (isPart) {
    parts.push_back({node, view});
    (item.role == Role::element ? element.hasElements : element.hasAttributes) = true;
    return;
  }
  if (planned.count != kNone) counts.push_back({node, view});
  if (item.role == Role::value) texts.push_back({node, view});
  // The counts of what repeats without being in the document have no occurrence.
  if (item.item->isGroup() && !planned.repeats) addItems(element, node, view);
}

void EncodePlan::addArea(PlannedElement& element, std::uint32_t area, std::uint32_t outer) {
  std::vector<std::uint32_t> const& nodes = m_layout->areas()[area].views;
  std::vector<layout::ViewRule const*> const& rules = m_set->rulesOf(m_record, area);
  std::uint32_t number = sizeOf(areas);
  PlannedArea& planned = areas.emplace_back();
  planned.area = area;
  planned.view = outer;
  planned.hasRules = !rules.empty();
  for (layout::ViewRule const* rule : rules) {
    for (layout::Comparison const& each : rule->comparisons) addTestedAreas(planned, each.node);
  }
  planned.views = {sizeOf(views), sizeOf(views) + sizeOf(nodes)};
  Range range = planned.views;
  for (std::uint32_t node : nodes) {
    PlannedView& view = views.emplace_back();
    view.node = node;
    view.area = number;
    bool isNamed = std::ranges::any_of(
        rules, [node](layout::ViewRule const* rule) { return rule->target == node; });
    std::uint32_t unnamed = rules.empty() ? m_layout->areas()[area].preset : nodes.front();
    view.isCandidate = isNamed || node == unnamed;
    if (node == nodes.front()) continue;
    view.absentBytes.resize((*m_layout)[node].extent());
    if (view.absentBytes.empty()) continue;
    Node const& first = (*m_layout)[node];
    for (std::uint64_t k = 0; k < first.most; ++k) {
      fillAbsent(node, view.absentBytes.data() + k * first.size);
    }
  }
  std::uint32_t firstPart = sizeOf(parts);
  for (std::uint32_t i = range.begin; i < range.end; ++i) {
    std::uint32_t firstText = sizeOf(texts);
    std::uint32_t firstArea = sizeOf(areas);
    addItem(element, views[i].node, i);
    views[i].texts = {firstText, sizeOf(texts)};
    views[i].areas = {firstArea, sizeOf(areas)};
    views[i].hasText = !views[i].texts.isEmpty();
    if (views[i].hasText) areas[number].hasText = true;
  }
  areas[number].parts = {firstPart, sizeOf(parts)};
}

void EncodePlan::addTestedAreas(PlannedArea& area, std::uint32_t node) const {
  for (; node != record::kNoNode; node = m_layout->item(node).parent) {
    std::uint32_t tested = (*m_layout)[node].area;
    bool isNew = std::ranges::find(area.testedAreas, tested) == area.testedAreas.end();
    if (tested != kNone && isNew) area.testedAreas.push_back(tested);
  }
}

// Gathers the slots of each name, and finds those that can be there together.
void EncodePlan::nameParts(PlannedElement& element, std::uint32_t number) {
  element.names.begin = sizeOf(names);
  std::vector<std::vector<std::uint32_t>> slotsOf;
  for (std::uint32_t i = element.parts.begin; i < element.parts.end; ++i) {
    std::uint32_t key = keyOf(parts[i].node);
    bool isAttribute = m_layout->item(parts[i].node).role == Role::attribute;
    auto [known, isNew] = m_places.try_emplace(placeKey(number, key, isAttribute), sizeOf(slotsOf));
    if (isNew) {
      slotsOf.emplace_back();
      names.push_back({key, isAttribute});
    }
    parts[i].name = known->second;
    slotsOf[known->second].push_back(i);
  }
  element.names.end = sizeOf(names);
  for (std::uint32_t i = 0; i < slotsOf.size(); ++i) {
    std::vector<std::uint32_t> const& own = slotsOf[i];
    PlannedName& name = names[element.names.begin + i];
    name.slots = {sizeOf(slots), sizeOf(slots) + sizeOf(own)};
    slots.insert(slots.end(), own.begin(), own.end());
    // Parts outside of all areas meet each other, so that few are compared.
    bool areSlots = false;
    for (std::size_t a = 1; a < own.size() && !areSlots; ++a) {
      for (std::size_t b = 0; b < a && !areSlots; ++b) {
        areSlots = canMeet(parts[own[b]], parts[own[a]]);
      }
    }
    for (std::uint32_t part : own) {
      parts[part].isArray = areSlots || (*m_layout)[parts[part].node].repeats;
      if (parts[part].isArray) name.isArray = true;
    }
  }
}

void EncodePlan::nameViews(PlannedElement const& element) {
  for (std::uint32_t i = element.areas.begin; i < element.areas.end; ++i) {
    std::map<std::uint32_t, std::size_t> placeOf;
    for (std::uint32_t part = areas[i].parts.begin; part < areas[i].parts.end; ++part) {
      std::uint32_t view = viewIn(parts[part].view, i);
      std::vector<AreaName>& own = areas[i].names;
      auto [known, isNew] = placeOf.try_emplace(parts[part].name, own.size());
      if (isNew) {
        PlannedName& name = names[element.names.begin + parts[part].name];
        std::uint64_t outside = roomOutside(name, i);
        if (outside > 0) name.isShared = true;
        own.push_back({parts[part].name, outside});
      }
      std::vector<bool>& has = views[view].names;
      if (has.size() <= known->second) has.resize(known->second + 1);
      has[known->second] = true;
    }
    for (std::uint32_t view = areas[i].views.begin; view < areas[i].views.end; ++view) {
      views[view].names.resize(areas[i].names.size());
    }
  }
}

// The occurrences of a name for which there is room outside of an area: of the views of
// another area the one with most counts.
std::uint64_t EncodePlan::roomOutside(PlannedName const& name, std::uint32_t area) const {
  std::uint64_t room = 0;
  std::map<std::uint32_t, std::map<std::uint32_t, std::uint64_t>> roomOf;  // by area and view
  for (std::uint32_t i = name.slots.begin; i < name.slots.end; ++i) {
    PlannedPart const& part = parts[slots[i]];
    if (viewIn(part.view, area) != kNone) continue;
    // Parts of other views of an area around this one cannot be there with it.
    std::uint32_t outermost = part.view;
    bool isExcluded = false;
    for (std::uint32_t view = part.view; view != kNone; view = areas[views[view].area].view) {
      outermost = view;
      std::uint32_t mine = viewIn(areas[area].view, views[view].area);
      if (mine != kNone && mine != view) isExcluded = true;
    }
    if (isExcluded) continue;
    std::uint64_t most = (*m_layout)[part.node].most;
    if (outermost == kNone || isInView(areas[area].view, outermost)) {
      room += most;
    } else {
      roomOf[views[outermost].area][outermost] += most;
    }
  }
  for (auto const& [other, byView] : roomOf) {
    std::uint64_t most = 0;
    for (auto const& [view, each] : byView) most = std::max(most, each);
    room += most;
  }
  return room;
}

// Whether a view is another one or in it.
bool EncodePlan::isInView(std::uint32_t inner, std::uint32_t view) const {
  for (; inner != kNone; inner = areas[views[inner].area].view) {
    if (inner == view) return true;
  }
  return false;
}

// The view of an area that a view is or is in; kNone if in none.
std::uint32_t EncodePlan::viewIn(std::uint32_t inner, std::uint32_t area) const {
  for (; inner != kNone; inner = areas[views[inner].area].view) {
    if (views[inner].area == area) return inner;
  }
  return kNone;
}

// Whether two parts can be there together: they are not in different views of an area.
bool EncodePlan::canMeet(PlannedPart const& one, PlannedPart const& other) const {
  for (std::uint32_t view = one.view; view != kNone; view = areas[views[view].area].view) {
    std::uint32_t mine = viewIn(other.view, views[view].area);
    if (mine != kNone && mine != view) return false;
  }
  return true;
}

// The absent bytes of one occurrence of an item in a view that is not the first:
// values of clauses are ignored. The recursion is bounded by the number of levels.
void EncodePlan::fillAbsent(std::uint32_t node, unsigned char* bytes) const {
  Node const& own = (*m_layout)[node];
  if (!m_layout->item(node).item->isGroup()) {
    writeAbsent(node, bytes);
    if (m_counterOf[node] == kNone) return;
    std::uint64_t least = 0;
    for (std::uint32_t table : m_layout->counters()[m_counterOf[node]].tables) {
      least = std::max(least, (*m_layout)[table].least);
    }
    static_cast<void>(
        m_set->values().writeInteger(own.format, bytes, static_cast<std::int64_t>(least)));
    return;
  }
  for (std::uint32_t i = node + 1; i < m_layout->item(node).end; i = m_layout->item(i).end) {
    if (!isStored(*m_layout->item(i).item)) continue;
    Node const& part = (*m_layout)[i];
    unsigned char* begin = bytes + (part.offset - own.offset);
    if (part.area != kNone) {
      layout::Area const& area = m_layout->areas()[part.area];
      if (area.views.front() != i) continue;
      std::memset(begin, m_set->values().conventions().codePage->blank(), area.size);
    }
    if (part.most == 0 || part.size == 0) continue;
    fillAbsent(i, begin);
    for (std::uint64_t k = 1; k < part.most; ++k) {
      std::memcpy(begin + k * part.size, begin, part.size);
    }
  }
}

}  // namespace fdmorph::document
