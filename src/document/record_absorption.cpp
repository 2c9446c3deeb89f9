// Parts that are encoded while their record is still being read.
//
// A table of a long record has its occurrences encoded as they come. Of each slot the
// first occurrence stays, without its parts, for its place in the document; it counts
// those that were taken out. What the end of the record decides is not absorbed: parts
// in areas, and parts with areas in them that have several views to choose from.
#include <algorithm>
#include <optional>

#include "document/record_encoder.h"

namespace fdmorph::document {

using layout::kNone;
using layout::Node;

std::vector<std::uint32_t> RecordEncoder::absorb(Instances& instances,
                                                 std::vector<std::uint32_t> const& open,
                                                 EncodeErrors& errors) {
  if (!m_isBegun) begin();
  m_in = &instances;
  m_runs = {};
  m_errors = &errors;
  m_nextSame.resize(instances.all.size());
  m_occurrence = {};
  if (m_isAbsorbable.empty()) findAbsorbable();
  std::vector<std::uint32_t> removed;
  OpenElement element{0, 0};
  for (std::size_t i = 0; i < open.size(); ++i) {
    Instance& part = instances.all[open[i]];
    bool const isElement = m_layout.item(element.node).item->isGroup() && !part.isNil &&
                           !part.isBroken && part.shape != Instance::Shape::scalar;
    if (!isElement) break;
    if (m_plan.elementOf(element.node).texts.isEmpty()) dropText(instances, part);
    std::uint32_t const inner = i + 1 < open.size() ? open[i + 1] : kNoInstance;
    std::optional<OpenElement> next = absorbChildren(instances, element, open[i], inner, removed);
    if (!next) break;
    element = *next;
  }
  m_occurrence = {};
  return removed;
}

// An element without a text: whether it has one is an error in any case.
void RecordEncoder::dropText(Instances& instances, Instance& part) {
  std::string_view const text = instances.textOf(part);
  if (isBlank(text)) {
    part.textSize = 0;
  } else {
    part.textBegin += text.find_first_not_of(" \t\r\n");
    part.textSize = 1;
  }
}

// Absorbs the children of an open element up to the one that is open as well, and says
// what that is; nothing if what is in it cannot be absorbed.
std::optional<RecordEncoder::OpenElement> RecordEncoder::absorbChildren(
    Instances& instances, OpenElement element, std::uint32_t number, std::uint32_t open,
    std::vector<std::uint32_t>& removed) {
  PlannedElement const& plan = m_plan.elementOf(element.node);
  std::vector<NameProgress> names(plan.names.size());
  std::uint32_t guess = 0;
  std::uint32_t last = kNoInstance;  // of the children that stay
  std::uint32_t child = instances.all[number].firstChild;
  while (child != open && child != kNoInstance) {
    std::uint32_t const next = instances.all[child].next;
    if (absorbChild(instances, element, child, names, guess, removed)) {
      removed.push_back(child);
      (last == kNoInstance ? instances.all[number].firstChild : instances.all[last].next) = next;
    } else {
      last = child;
    }
    child = next;
  }
  if (open == kNoInstance) {
    instances.all[number].lastChild = last;
    return std::nullopt;
  }
  Instance const& part = instances.all[open];
  std::uint32_t const name = nameOf(element, part, guess);
  if (name == kNone || names[name].isBlocked || !isAbsorbable(element, name, part)) {
    return std::nullopt;
  }
  std::optional<SlotPlace> const place = slotOf(element, name, names[name].count);
  if (!place) return std::nullopt;
  Node const& node = m_layout[place->node];
  if (node.repeats) m_occurrence.at[node.depth] = place->index;
  return OpenElement{place->node, element.base + place->index * node.size};
}

// True if the child is not needed any longer.
bool RecordEncoder::absorbChild(Instances& instances, OpenElement element, std::uint32_t number,
                                std::vector<NameProgress>& names, std::uint32_t& guess,
                                std::vector<std::uint32_t>& removed) {
  Instance& child = instances.all[number];
  if (child.isAttribute || child.name == kTextMember) return false;
  std::uint32_t const name = nameOf(element, child, guess);
  if (name == kNone) {
    if (m_rules.isJson) return false;  // a second member of this name is an error, too
    refuseUnknown(element.node, child);
    return true;
  }
  guess = name;
  NameProgress& progress = names[name];
  if (child.isAbsorbed) {
    progress.count += child.standsFor;
    progress.last = number;
    return false;
  }
  bool const isArray = m_plan.names[m_plan.elementOf(element.node).names.begin + name].isArray;
  if (child.isNil && (m_rules.isJson ? !child.isInArray : !isArray)) return true;
  if (progress.isBlocked || child.isEmptyArray || !isAbsorbable(element, name, child)) {
    progress.isBlocked = true;
    return false;
  }
  std::uint64_t const count = progress.count++;
  std::optional<SlotPlace> const place = slotOf(element, name, count);
  bool const isBeyond = !place;
  bool const isFirst = isBeyond ? !progress.isBeyond : place->index == 0;
  progress.isBeyond = isBeyond;
  if (!isBeyond && !child.isNil) absorbOne(element, *place, number);
  if (!isFirst) {
    ++instances.all[progress.last].standsFor;
    return true;
  }
  progress.last = number;
  child.isAbsorbed = true;
  child.textSize = 0;
  for (std::uint32_t i = child.firstChild; i != kNoInstance; i = instances.all[i].next) {
    removed.push_back(i);
  }
  child.firstChild = child.lastChild = kNoInstance;
  return false;
}

// Encodes a child, and makes the checks that nothing outside of it decides.
void RecordEncoder::absorbOne(OpenElement element, SlotPlace place, std::uint32_t number) {
  Node const& node = m_layout[place.node];
  std::size_t const pool = m_pool.size();
  std::size_t const checks = m_tableChecks.size();
  std::size_t const areas = m_areaChecks.size();
  std::uint64_t const base = element.base + place.index * node.size;
  if (node.repeats) m_occurrence.at[node.depth] = place.index;
  encodeOne(place.node, number, base);
  if (m_tableChecks.size() > checks) settleTables(checks, place.node);
  // No rules are about these.
  for (std::size_t i = areas; i < m_areaChecks.size(); ++i) {
    m_absorbedEnd = std::max(m_absorbedEnd, m_areaChecks[i].end);
  }
  m_areaChecks.resize(areas);
  if (m_viewErrors.size() > kMaxErrorsPerRecord) m_viewErrors.resize(kMaxErrorsPerRecord);
  if (m_tableChecks.size() == checks) m_pool.resize(pool);
  if (node.repeats) {
    std::uint64_t const begin = node.offset + base;
    m_counters.forget(begin, begin + node.size);
    m_occurrence.at[node.depth] = 0;
  }
}

// Makes the checks from `first` on whose counter is in the item, or known already. Others
// stay: the counter may follow.
void RecordEncoder::settleTables(std::size_t first, std::uint32_t item) {
  layout::Occurrence const occurrence = m_occurrence;
  std::size_t kept = first;
  for (std::size_t i = first; i < m_tableChecks.size(); ++i) {
    TableCheck const check = m_tableChecks[i];
    Node const& table = m_layout[check.table];
    std::uint32_t const counter = m_layout.counters()[table.counter].node;
    loadOccurrence(check.occurrence, table.depth);
    bool isSettled = counter == kNone || (counter >= item && counter < m_layout.item(item).end);
    if (!isSettled) {
      std::uint64_t const offset = offsetOf(m_layout, counter, m_occurrence);
      isSettled = m_counters.at(table.counter, offset).source != CounterState::Source::none;
    }
    if (isSettled && (counter == kNone || !isInArea(counter))) {
      checkTable(check);
    } else {
      m_tableChecks[kept++] = check;
    }
  }
  m_tableChecks.resize(kept);
  m_occurrence = occurrence;
}

std::uint32_t RecordEncoder::nameOf(OpenElement element, Instance const& child,
                                    std::uint32_t guess) const {
  if (child.name == kNone) return kNone;
  return m_plan.findName(element.node, child.name, child.isAttribute, guess);
}

// Whether children of a name are encoded as they come.
bool RecordEncoder::isAbsorbable(OpenElement element, std::uint32_t name,
                                 Instance const& child) const {
  std::uint32_t const number = m_plan.elementOf(element.node).names.begin + name;
  bool const isOfShape = !m_rules.isJson || child.isInArray == m_plan.names[number].isArray;
  return isOfShape && m_isAbsorbable[number];
}

// The slot of an occurrence of a name, if there is room for it.
std::optional<RecordEncoder::SlotPlace> RecordEncoder::slotOf(OpenElement element,
                                                              std::uint32_t name,
                                                              std::uint64_t count) const {
  PlannedName const& planned = m_plan.names[m_plan.elementOf(element.node).names.begin + name];
  for (std::uint32_t i = planned.slots.begin; i < planned.slots.end; ++i) {
    std::uint32_t const node = m_plan.parts[m_plan.slots[i]].node;
    if (count < m_layout[node].most) return SlotPlace{node, count};
    count -= m_layout[node].most;
  }
  return std::nullopt;
}

// Finds the names all of whose parts are in no view, and have no area in them whose view
// the rules or a text choose.
void RecordEncoder::findAbsorbable() {
  std::vector<std::uint32_t> undecided;  // the first views of such areas
  for (PlannedArea const& area : m_plan.areas) {
    auto const begin = m_plan.views.begin() + area.views.begin;
    auto const texts = std::count_if(begin, m_plan.views.begin() + area.views.end,
                                     [](PlannedView const& view) { return view.hasText; });
    if (!area.hasRules && texts < 2) continue;
    undecided.push_back(m_layout.areas()[area.area].views.front());
  }
  m_isAbsorbable.resize(m_plan.names.size());
  for (std::size_t i = 0; i < m_plan.names.size(); ++i) {
    Range const slots = m_plan.names[i].slots;
    bool isAbsorbable = !m_plan.names[i].isAttribute;
    for (std::uint32_t k = slots.begin; k < slots.end; ++k) {
      PlannedPart const& part = m_plan.parts[m_plan.slots[k]];
      bool const hasUndecided = std::ranges::any_of(undecided, [&](std::uint32_t view) {
        return view >= part.node && view < m_layout.item(part.node).end;
      });
      if (part.view != kNone || hasUndecided) isAbsorbable = false;
    }
    m_isAbsorbable[i] = isAbsorbable;
  }
}

}  // namespace fdmorph::document
