// The numbers of tables with DEPENDING ON and their counters.
#include <algorithm>

#include "document/record_encoder.h"

namespace fdmorph::document {
namespace {

using layout::Counter;
using layout::kNone;
using layout::Node;
using Source = CounterState::Source;

std::string countText(std::uint64_t count) {
  return std::to_string(count) + (count == 1 ? " occurrence" : " occurrences");
}

}  // namespace

void RecordEncoder::addTableCheck(std::uint32_t table, std::uint64_t count, bool hasCount,
                                  std::uint32_t instance) {
  m_tableChecks.push_back(
      {table, count, hasCount, false, instance, saveOccurrence(m_layout[table].depth)});
}

// Keeps what the document says about a counter.
void RecordEncoder::noteCounter(std::uint32_t node, std::uint64_t offset, Instance const& instance,
                                bool hasFailed) {
  std::uint32_t counter = m_plan.counterOf(node);
  if (counter == kNone) return;
  CounterState& state = m_counters.at(counter, offset);
  state = {Source::failed, 0, instance.line, instance.column};
  if (hasFailed) return;
  std::optional<std::int64_t> value =
      m_set.values().readInteger(m_layout[node].format, m_bytes.data() + offset);
  if (!value) return;
  state.source = Source::document;
  state.value = *value;
}

// Makes the checks that were added so far. Those of counters in an area wait for the
// last call, since their view may change.
void RecordEncoder::checkTables(bool isLast) {
  std::size_t kept = 0;
  for (TableCheck const& check : m_tableChecks) {
    std::uint32_t counter = m_layout.counters()[m_layout[check.table].counter].node;
    if (!isLast && counter != kNone && isInArea(counter)) {
      m_tableChecks[kept] = check;
      ++kept;
    } else {
      loadOccurrence(check.occurrence, m_layout[check.table].depth);
      checkTable(check);
    }
  }
  m_tableChecks.resize(kept);
}

void RecordEncoder::checkTable(TableCheck const& check) {
  Node const& table = m_layout[check.table];
  Counter const& counter = m_layout.counters()[table.counter];
  bool isGiven = counter.node == kNone;
  std::uint64_t offset = isGiven ? 0 : offsetOf(m_layout, counter.node, m_occurrence);
  CounterState& state = m_counters.at(table.counter, offset);
  if (!check.hasCount) {
    if (!isGiven) checkUncounted(check, state, offset);
    return;
  }
  if (state.source == Source::failed) return;
  if (check.hasFailed) {
    if (state.source == Source::none) state.source = Source::failed;
    return;
  }
  auto const found = static_cast<std::int64_t>(check.count);
  std::string text;
  bool isKnown = isGiven || state.source != Source::none;
  std::int64_t wanted = isGiven ? counter.value : state.value;
  if (isKnown && wanted != found) {
    text = countText(check.count) + ", but " +
           (isGiven || state.source == Source::document ? "the counter is "
                                                        : "another table of the counter has ") +
           std::to_string(wanted);
  } else if (check.count < table.least) {
    text =
        countText(check.count) + ", but at least " + std::to_string(table.least) + " are required";
  }
  if (!isKnown) {
    state.source = Source::table;
    state.value = found;
    values::ItemFormat const& format = m_layout[counter.node].format;
    bool isWritten = m_set.values().writeInteger(format, m_bytes.data() + offset, found);
    if (!isWritten && text.empty()) {
      text = countText(check.count) + ", which the counter cannot hold";
    }
    if (!isWritten) m_plan.writeAbsent(counter.node, m_bytes.data() + offset);
  }
  if (text.empty()) return;
  addError(m_in->all[check.instance], check.table, {ErrorCode::odo, std::move(text)}, true);
}

// A table that is not in the document takes what its counter says.
void RecordEncoder::checkUncounted(TableCheck const& check, CounterState& state,
                                   std::uint64_t offset) {
  Node const& table = m_layout[check.table];
  std::uint32_t counter = m_layout.counters()[table.counter].node;
  if (state.source == Source::failed) return;
  values::ItemFormat const& format = m_layout[counter].format;
  std::optional<std::int64_t> value = m_set.values().readInteger(format, m_bytes.data() + offset);
  bool isInside = value && *value >= 0 && static_cast<std::uint64_t>(*value) >= table.least &&
                  static_cast<std::uint64_t>(*value) <= table.most;
  if (isInside) return;
  Source source = state.source;
  state.source = Source::failed;
  if (source == Source::none) {
    static_cast<void>(m_set.values().writeInteger(format, m_bytes.data() + offset,
                                                  static_cast<std::int64_t>(table.least)));
    return;
  }
  DataError error{ErrorCode::odo, "expected " + std::to_string(table.least) + " to " +
                                      std::to_string(table.most) + ", found " +
                                      std::to_string(state.value)};
  error.path = pathOf(m_layout, counter, m_occurrence);
  bool isInDocument = source == Source::document;
  error.line = isInDocument ? state.line : m_in->all[check.instance].line;
  error.column = isInDocument ? state.column : m_in->all[check.instance].column;
  m_errors->add(std::move(error));
}

bool RecordEncoder::isInArea(std::uint32_t node) const {
  for (std::uint32_t each = node; each != record::kNoNode; each = m_layout.item(each).parent) {
    if (m_layout[each].area != kNone) return true;
  }
  return false;
}

std::size_t RecordEncoder::saveOccurrence(std::uint32_t depth) {
  std::size_t begin = m_pool.size();
  auto const& at = m_occurrence.at;
  m_pool.insert(m_pool.end(), at.begin(), at.begin() + depth);
  return begin;
}

void RecordEncoder::loadOccurrence(std::size_t saved, std::uint32_t depth) {
  std::copy_n(m_pool.begin() + static_cast<std::ptrdiff_t>(saved), depth, m_occurrence.at.begin());
}

}  // namespace fdmorph::document
