// The views of areas: which of them a document's record has.
#include <algorithm>
#include <cstring>

#include "document/record_encoder.h"

namespace fdmorph::document {
namespace {

using layout::kNone;

}  // namespace

// Decides the areas of an element. True if some stay undecided.
bool RecordEncoder::decideAreas(Frame const& frame) {
  Range areas = planOf(frame).areas;
  bool isUndecided = false;
  for (std::uint32_t i = areas.begin; i < areas.end; ++i) {
    if (m_plan.areas[i].view == kNone && !decideArea(frame, i)) isUndecided = true;
  }
  if (isUndecided) m_undecided.push_back({frame, saveOccurrence(innerDepth(frame.node))});
  return isUndecided;
}

// False if the area stays undecided. While a view of another area is tried, none does.
bool RecordEncoder::decideArea(Frame const& frame, std::uint32_t area) {
  if (!hasPart(frame, area)) {
    takeNothing(frame, area);
    return true;
  }
  std::vector<std::uint32_t> const candidates = candidatesOf(frame, area);
  if (candidates.empty()) {
    failArea(frame, area);
    return true;
  }
  if (candidates.size() == 1) return takeView(frame, candidates.front());
  if (m_attempts > 0) {
    static_cast<void>(tryViews(frame, area, true));
    return true;
  }
  for (AreaName const& each : m_plan.areas[area].names) useOf(frame, each.name).area = area;
  takenOf(frame, area) = kOpen;
  ++m_openCounts[m_plan.areas[area].area];
  return false;
}

// The area starts as if the view were absent. False if an area in it stays undecided.
bool RecordEncoder::takeView(Frame const& frame, std::uint32_t number) {
  PlannedView const& view = m_plan.views[number];
  takenOf(frame, view.area) = number;
  if (!view.absentBytes.empty()) {
    std::memcpy(m_bytes.data() + m_layout[view.node].offset + frame.base, view.absentBytes.data(),
                view.absentBytes.size());
  }
  addAreaCheck(frame, view.area, number);
  bool areDecided = true;
  for (std::uint32_t i = view.areas.begin; i < view.areas.end; ++i) {
    if (m_plan.areas[i].view == number && !decideArea(frame, i)) areDecided = false;
  }
  return areDecided;
}

void RecordEncoder::takeNothing(Frame const& frame, std::uint32_t area) {
  takenOf(frame, area) = kNothing;
  addAreaCheck(frame, area, kNothing);
}

// No view has all parts of the document.
void RecordEncoder::failArea(Frame const& frame, std::uint32_t area) {
  addAreaCheck(frame, area, kFailed);
  m_viewErrors.push_back(viewError(m_areaChecks.back()));
  m_areaChecks.pop_back();
  takenOf(frame, area) = kFailed;
  for (AreaName const& each : m_plan.areas[area].names) useOf(frame, each.name).hasFailed = true;
}

// Whether the document has a part of an area.
bool RecordEncoder::hasPart(Frame const& frame, std::uint32_t area) const {
  PlannedArea const& plan = m_plan.areas[area];
  if (plan.hasText && frame.text != kNoInstance) return true;
  return std::ranges::any_of(
      plan.names, [&](AreaName const& each) { return m_uses[frame.uses + each.name].count > 0; });
}

// The views that have all parts which the document has of any view. Without rules it
// is the preset one, or, for a text, all that have one.
std::vector<std::uint32_t> RecordEncoder::candidatesOf(Frame const& frame,
                                                       std::uint32_t area) const {
  PlannedArea const& plan = m_plan.areas[area];
  bool areTexts = !plan.hasRules && plan.hasText && frame.text != kNoInstance;
  std::vector<std::uint32_t> candidates;
  for (std::uint32_t i = plan.views.begin; i < plan.views.end; ++i) {
    PlannedView const& view = m_plan.views[i];
    bool isCandidate = areTexts ? view.hasText : view.isCandidate;
    if (isCandidate && fits(frame, view)) candidates.push_back(i);
  }
  return candidates;
}

bool RecordEncoder::fits(Frame const& frame, PlannedView const& view) const {
  PlannedArea const& area = m_plan.areas[view.area];
  bool hasAny = view.hasText && frame.text != kNoInstance;
  if (area.hasText && frame.text != kNoInstance && !view.hasText) return false;
  for (std::size_t i = 0; i < area.names.size(); ++i) {
    std::uint64_t count = m_uses[frame.uses + area.names[i].name].count;
    if (count == 0) continue;
    if (view.names[i]) {
      hasAny = true;
    } else if (count > area.names[i].outside) {
      return false;
    }
  }
  return hasAny;
}

// Encodes the areas that waited for the rest of the record. A view may depend on an
// area that is decided later: it waits for that one, and those that fail are tried again.
void RecordEncoder::resolveUndecided() {
  Round round = Round::settled;
  bool areAllDecided = m_undecided.empty();
  while (!areAllDecided) {
    bool hasProgress = false;
    areAllDecided = true;
    for (Undecided const& each : m_undecided) {
      loadOccurrence(each.occurrence, innerDepth(each.frame.node));
      Range areas = planOf(each.frame).areas;
      for (std::uint32_t i = areas.begin; i < areas.end; ++i) {
        PlannedArea const& area = m_plan.areas[i];
        if (takenOf(each.frame, i) != kOpen) continue;
        bool isTried = round != Round::settled || !looksAtUndecided(area);
        bool isDecided = isTried && tryViews(each.frame, i, round == Round::last);
        if (isDecided) --m_openCounts[area.area];
        (isDecided ? hasProgress : areAllDecided) = isDecided;
      }
    }
    if (hasProgress) {
      round = Round::settled;
    } else {
      round = round == Round::settled ? Round::any : Round::last;
    }
  }
  for (Undecided const& each : m_undecided) finishUndecided(each);
}

bool RecordEncoder::looksAtUndecided(PlannedArea const& area) const {
  return std::ranges::any_of(area.testedAreas, [&](std::uint32_t tested) {
    return tested != area.area && m_openCounts[tested] > 0;
  });
}

// The parts that have slots in and outside of an area, and what depends on the views.
void RecordEncoder::finishUndecided(Undecided const& each) {
  loadOccurrence(each.occurrence, innerDepth(each.frame.node));
  PlannedElement const& plan = planOf(each.frame);
  for (std::uint32_t name = 0; name < plan.names.size(); ++name) {
    bool isShared = m_plan.names[plan.names.begin + name].isShared;
    if (isShared && useOf(each.frame, name).area != kNone) encodeName(each.frame, name, false);
  }
  finishItems(each.frame, true, false);
}

// Takes the first view with which the rules choose it, and whose item accepts the
// text. False if there is none and `isLast` is not set: nothing has changed then.
bool RecordEncoder::tryViews(Frame const& frame, std::uint32_t area, bool isLast) {
  PlannedArea const& plan = m_plan.areas[area];
  std::vector<std::uint32_t> candidates = candidatesOf(frame, area);
  std::uint32_t const first = candidates.empty() ? kNone : candidates.front();
  std::uint32_t const likely = chosenView(area);
  auto found = std::ranges::find_if(
      candidates, [&](std::uint32_t each) { return m_plan.views[each].node == likely; });
  // What the rules look at outside of the area is there already, so no other view can be
  // the one.
  bool isKnown = plan.hasRules && !plan.testsItself() && found != candidates.end();
  if (isKnown) std::rotate(candidates.begin(), found, found + 1);
  Mark const mark = markOf(frame, area);
  bool areAllWrong = !candidates.empty();
  bool isTextAccepted = false;
  for (std::uint32_t each : candidates) {
    if (m_attemptsLeft == 0) break;
    --m_attemptsLeft;
    bool hasTextFailed = m_hasTextFailed;
    m_hasTextFailed = false;
    encodeView(frame, each);
    bool isAccepted = !plan.hasText || !m_hasTextFailed;
    m_hasTextFailed = hasTextFailed;
    if (isAccepted) isTextAccepted = true;
    if (isAccepted && (!plan.hasRules || chosenView(area) == m_plan.views[each].node)) return true;
    if (m_errors->size() == mark.errors) areAllWrong = false;
    undo(frame, area, mark);
  }
  if (!isLast) return false;
  // The errors of the first view, unless another one has none.
  bool isTextRefused = plan.hasText && frame.text != kNoInstance && !isTextAccepted;
  if (first != kNone && (isTextRefused || (areAllWrong && !plan.hasText))) {
    encodeView(frame, first);
  } else {
    failArea(frame, area);
  }
  return true;
}

void RecordEncoder::encodeView(Frame const& frame, std::uint32_t number) {
  PlannedView const& view = m_plan.views[number];
  PlannedArea const& area = m_plan.areas[view.area];
  ++m_attempts;
  m_errors->keepAll(true);
  for (AreaName const& each : area.names) useOf(frame, each.name).area = view.area;
  static_cast<void>(takeView(frame, number));
  for (AreaName const& each : area.names) {
    // Those of an area in the view may be there already.
    if (useOf(frame, each.name).area != view.area) continue;
    bool isShared = m_plan.names[planOf(frame).names.begin + each.name].isShared;
    encodeName(frame, each.name, isShared);
  }
  encodeTexts(frame, view.texts);
  --m_attempts;
  m_errors->keepAll(m_attempts > 0);
}

RecordEncoder::Mark RecordEncoder::markOf(Frame const& frame, std::uint32_t area) {
  layout::Area const& bytes = m_layout.areas()[m_plan.areas[area].area];
  auto begin = m_bytes.begin() +
               static_cast<std::ptrdiff_t>(m_layout[bytes.views.front()].offset + frame.base);
  return {m_errors->size(),
          m_tableChecks.size(),
          m_areaChecks.size(),
          m_viewErrors.size(),
          m_pool.size(),
          {begin, begin + static_cast<std::ptrdiff_t>(bytes.size)},
          m_counts};
}

void RecordEncoder::undo(Frame const& frame, std::uint32_t number, Mark const& mark) {
  PlannedArea const& area = m_plan.areas[number];
  std::uint64_t begin = m_layout[m_layout.areas()[area.area].views.front()].offset + frame.base;
  std::ranges::copy(mark.bytes, m_bytes.begin() + static_cast<std::ptrdiff_t>(begin));
  m_counts = mark.counts;
  m_counters.forget(begin, begin + mark.bytes.size());
  m_errors->truncate(mark.errors);
  m_tableChecks.resize(mark.tableChecks);
  m_areaChecks.resize(mark.areaChecks);
  m_viewErrors.resize(mark.viewErrors);
  m_pool.resize(mark.pool);
  takenOf(frame, number) = kOpen;
  for (std::uint32_t view = area.views.begin; view < area.views.end; ++view) {
    Range inner = m_plan.views[view].areas;
    for (std::uint32_t i = inner.begin; i < inner.end; ++i) takenOf(frame, i) = kNothing;
  }
  for (AreaName const& each : area.names) {
    useOf(frame, each.name).area = number;
    useOf(frame, each.name).hasFailed = false;
  }
}

// The view that the rules choose for the record as it is now.
std::uint32_t RecordEncoder::chosenView(std::uint32_t area) {
  putRuns();
  return m_set.chooseView(m_record, m_plan.areas[area].area, {m_bytes.data(), m_bytes.size()},
                          m_occurrence);
}

// Shifted records get their runs later: offsets are those of the record as it is written.
void RecordEncoder::putRuns() {
  if (m_layout.shifts()) return;
  for (ByteRun const& run : m_runs) {
    if (run.offset >= m_bytes.size()) continue;
    std::size_t size = std::min(run.bytes.size(), m_bytes.size() - run.offset);
    std::memcpy(m_bytes.data() + run.offset, run.bytes.data(), size);
  }
}

void RecordEncoder::addAreaCheck(Frame const& frame, std::uint32_t number, std::uint32_t view) {
  PlannedArea const& area = m_plan.areas[number];
  AreaCheck check{frame.node, number, view, kNone, frame.instance, 0, 0};
  if (view < kOpen) {
    layout::Node const& taken = m_layout[m_plan.views[view].node];
    check.end = taken.offset + frame.base + taken.extent();
  }
  std::uint32_t first = kNoInstance;
  for (AreaName const& each : area.names) {
    NameUse const& use = useOf(frame, each.name);
    if (use.count == 0 || use.first > first) continue;
    first = use.first;
    // The first slot of this name that is in the view, or else in any view.
    for (std::uint32_t i = area.parts.begin; i < area.parts.end; ++i) {
      if (m_plan.parts[i].name != each.name) continue;
      check.part = m_plan.parts[i].node;
      if (view >= kOpen || m_plan.parts[i].view == view) break;
    }
  }
  if (first != kNoInstance) check.instance = first;
  check.occurrence = saveOccurrence(innerDepth(frame.node));
  m_areaChecks.push_back(check);
}

void RecordEncoder::checkViews(std::uint64_t available, EncodeErrors& errors) {
  if (!errors.isEmpty()) return;
  for (DataError& each : m_viewErrors) errors.add(std::move(each));
  for (AreaCheck const& check : m_areaChecks) {
    loadOccurrence(check.occurrence, innerDepth(check.element));
    checkArea(check, check.area, available, errors);
  }
}

void RecordEncoder::checkArea(AreaCheck const& check, std::uint32_t number, std::uint64_t available,
                              EncodeErrors& errors) {
  PlannedArea const& area = m_plan.areas[number];
  if (!m_layout.areas()[area.area].hasRole) return;
  std::uint32_t chosen =
      m_set.chooseView(m_record, area.area, {m_bytes.data(), available}, m_occurrence);
  if (check.view < kOpen) {
    if (area.hasRules && chosen != m_plan.views[check.view].node) errors.add(viewError(check));
    return;
  }
  if (chosen == kNone) {
    errors.add(viewError(check));
    return;
  }
  // Nothing of the area is in the document, so that the areas in its view are read, too.
  for (std::uint32_t i = area.views.begin; i < area.views.end; ++i) {
    PlannedView const& view = m_plan.views[i];
    if (view.node != chosen) continue;
    for (std::uint32_t inner = view.areas.begin; inner < view.areas.end; ++inner) {
      if (m_plan.areas[inner].view == i) checkArea(check, inner, available, errors);
    }
  }
}

std::uint64_t RecordEncoder::endOfTexts() const {
  std::uint64_t end = m_absorbedEnd;
  for (AreaCheck const& check : m_areaChecks) {
    if (!m_plan.areas[check.area].hasRules) end = std::max(end, check.end);
  }
  return end;
}

DataError RecordEncoder::viewError(AreaCheck const& check) const {
  layout::Occurrence occurrence;
  std::copy_n(m_pool.begin() + static_cast<std::ptrdiff_t>(check.occurrence),
              innerDepth(check.element), occurrence.at.begin());
  std::string_view name = record::dataNameOf(
      *m_layout.item(m_layout.areas()[m_plan.areas[check.area].area].views.front()).item);
  std::string area = " for the area of '" + std::string(name) + "'";
  DataError error{ErrorCode::view, {}};
  if (check.view == kNothing) {
    error.text = "no rule holds" + area;
  } else if (check.view == kFailed) {
    error.text = "no view fits" + area;
  } else {
    error.text = "the rules choose another view" + area;
  }
  error.path = pathOf(m_layout, check.part == kNone ? check.element : check.part, occurrence);
  error.line = m_in->all[check.instance].line;
  error.column = m_in->all[check.instance].column;
  return error;
}

}  // namespace fdmorph::document
