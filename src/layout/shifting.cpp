#include "layout/shifting.h"

#include <algorithm>
#include <cstring>

namespace fdmorph::layout {
namespace {

// Visits the tables with DEPENDING ON of a record, in its order. The visitor has
//   std::optional<std::uint64_t> count(table, occurrence, offset): the number of
//     occurrences of the table at this offset, nothing to end the walk,
//   bool after(begin, end): the table ended; its bytes from begin to end are unused.
// The recursion is bounded by the number of levels.
template <typename Visitor>
class TableWalk {
 public:
  TableWalk(Layout const& layout, Visitor& visitor) : m_layout(layout), m_visitor(visitor) {}

  // The tables below a group that begins at `offset`.
  bool walk(std::uint32_t group, std::uint64_t offset) {
    for (std::uint32_t i = group + 1; i < m_layout.item(group).end; i = m_layout.item(i).end) {
      Node const& node = m_layout[i];
      if (!node.hasCounter) continue;
      if (!walkItem(i, offset + (node.offset - m_layout[group].offset))) return false;
    }
    return true;
  }

 private:
  bool walkItem(std::uint32_t item, std::uint64_t offset) {
    Node const& node = m_layout[item];
    std::uint64_t count = node.most;
    if (node.counter != kNone) {
      std::optional<std::uint64_t> found = m_visitor.count(item, m_occurrence, offset);
      if (!found) return false;
      count = *found;
    }
    for (std::uint64_t k = 0; k < count; ++k) {
      if (node.repeats) m_occurrence.at[node.depth] = k;
      if (!walk(item, offset + k * node.size)) return false;
    }
    return node.counter == kNone ||
           m_visitor.after(offset + count * node.size, offset + node.extent());
  }

  Layout const& m_layout;
  Visitor& m_visitor;
  Occurrence m_occurrence;
};

class Spreading {
 public:
  Spreading(Layout const& layout, values::Values const& values, unsigned char const* record,
            std::uint64_t size, unsigned char* full)
      : m_layout(layout), m_values(values), m_record(record), m_size(size), m_full(full) {
    m_result.available = layout.size();
  }

  SpreadRecord run() {
    if (TableWalk(m_layout, *this).walk(0, 0)) copyTo(m_layout.size());
    m_result.used = m_begin - m_removed;
    return m_result;
  }

  std::optional<std::uint64_t> count(std::uint32_t table, Occurrence const& occurrence,
                                     std::uint64_t offset) {
    copyTo(offset);
    CounterValue value =
        countOf(m_layout, m_values, {m_full, m_result.available}, table, occurrence);
    m_result.fault = value.fault;
    if (value.fault) return std::nullopt;
    return value.count;
  }

  bool after(std::uint64_t begin, std::uint64_t end) {
    copyTo(begin);
    m_removed += end - begin;
    m_begin = end;
    return true;
  }

 private:
  // Copies what belongs to the largest form up to `end`.
  void copyTo(std::uint64_t end) {
    if (end <= m_begin) return;
    std::uint64_t from = m_begin - m_removed;
    std::uint64_t wanted = end - m_begin;
    std::uint64_t given = from < m_size ? std::min(m_size - from, wanted) : 0;
    std::memcpy(m_full + m_begin, m_record + from, given);
    if (given < wanted && !m_result.isShort) {
      m_result.isShort = true;
      m_result.available = m_begin + given;
    }
    m_begin = end;
  }

  Layout const& m_layout;
  values::Values const& m_values;
  unsigned char const* m_record;
  std::uint64_t m_size;
  unsigned char* m_full;
  std::uint64_t m_begin = 0;    // in the largest form: what is copied next
  std::uint64_t m_removed = 0;  // bytes that the shifted form does not have so far
  SpreadRecord m_result;
};

class Shifting {
 public:
  Shifting(Layout const& layout, values::Values const& values, unsigned char const* full,
           unsigned char* out)
      : m_layout(layout), m_values(values), m_full(full), m_out(out) {}

  std::uint64_t run() {
    if (!TableWalk(m_layout, *this).walk(0, 0)) return m_size;
    copyTo(m_layout.size());
    return m_size;
  }

  std::optional<std::uint64_t> count(std::uint32_t table, Occurrence const& occurrence,
                                     std::uint64_t /*offset*/) {
    return countOf(m_layout, m_values, {m_full, m_layout.size()}, table, occurrence).count;
  }

  bool after(std::uint64_t begin, std::uint64_t end) {
    copyTo(begin);
    m_begin = end;
    return true;
  }

 private:
  void copyTo(std::uint64_t end) {
    if (end <= m_begin) return;
    std::memcpy(m_out + m_size, m_full + m_begin, end - m_begin);
    m_size += end - m_begin;
    m_begin = end;
  }

  Layout const& m_layout;
  values::Values const& m_values;
  unsigned char const* m_full;
  unsigned char* m_out;
  std::uint64_t m_begin = 0;
  std::uint64_t m_size = 0;
};

class Locating {
 public:
  Locating(Layout const& layout, values::Values const& values, unsigned char const* full,
           std::uint64_t target)
      : m_layout(layout), m_values(values), m_full(full), m_target(target) {}

  std::uint64_t run() {
    static_cast<void>(TableWalk(m_layout, *this).walk(0, 0));
    return m_target - m_removed;
  }

  std::optional<std::uint64_t> count(std::uint32_t table, Occurrence const& occurrence,
                                     std::uint64_t offset) {
    if (offset >= m_target) return std::nullopt;
    CounterValue value = countOf(m_layout, m_values, {m_full, m_layout.size()}, table, occurrence);
    if (value.fault) return std::nullopt;
    return value.count;
  }

  bool after(std::uint64_t begin, std::uint64_t end) {
    if (end > m_target) return false;
    m_removed += end - begin;
    return true;
  }

 private:
  Layout const& m_layout;
  values::Values const& m_values;
  unsigned char const* m_full;
  std::uint64_t m_target;
  std::uint64_t m_removed = 0;
};

}  // namespace

CounterValue countOf(Layout const& layout, values::Values const& values, RecordBytes record,
                     std::uint32_t table, Occurrence const& occurrence) {
  Node const& node = layout[table];
  Counter const& counter = layout.counters()[node.counter];
  if (counter.node == kNone) return {static_cast<std::uint64_t>(counter.value), false, {}};
  std::uint64_t offset = offsetOf(layout, counter.node, occurrence);
  Node const& item = layout[counter.node];
  if (offset + item.size > record.available) return {node.least, true, {}};
  std::optional<std::int64_t> value = values.readInteger(item.format, record.bytes + offset);
  if (!value) return {0, false, CounterFault{counter.node, table, occurrence, false}};
  bool isInside = *value >= 0 && static_cast<std::uint64_t>(*value) >= node.least &&
                  static_cast<std::uint64_t>(*value) <= node.most;
  if (isInside) return {static_cast<std::uint64_t>(*value), false, {}};
  return {0, false, CounterFault{counter.node, table, occurrence, true, *value}};
}

SpreadRecord spread(Layout const& layout, values::Values const& values, unsigned char const* record,
                    std::uint64_t size, unsigned char* full) {
  return Spreading(layout, values, record, size, full).run();
}

std::uint64_t shift(Layout const& layout, values::Values const& values, unsigned char const* full,
                    unsigned char* out) {
  return Shifting(layout, values, full, out).run();
}

std::uint64_t shiftedOffset(Layout const& layout, values::Values const& values,
                            unsigned char const* full, std::uint64_t offset) {
  return Locating(layout, values, full, offset).run();
}

}  // namespace fdmorph::layout
