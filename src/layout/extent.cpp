#include "layout/extent.h"

#include <algorithm>

#include "layout/layout_builder.h"
#include "layout/shifting.h"

namespace fdmorph::layout {
namespace {

// The recursion is bounded by the number of levels.
class ExtentWalk {
 public:
  ExtentWalk(RecordSet const& set, std::uint32_t record, RecordBytes bytes, Extent extent)
      : m_set(set),
        m_layout(set.layouts()[record]),
        m_record(record),
        m_bytes(bytes),
        m_extent(extent) {}

  // The end of the occurrence of an item that begins at `offset`.
  std::uint64_t endOfOne(std::uint32_t item, std::uint64_t offset) {
    Node const& node = m_layout[item];
    bool isFixed = !node.hasArea && (!node.hasCounter || m_extent == Extent::largest);
    if (isFixed || !m_layout.item(item).item->isGroup()) return offset + node.size;
    std::uint64_t end = offset;
    for (std::uint32_t i = item + 1; i < m_layout.item(item).end; i = m_layout.item(i).end) {
      if (!isStored(*m_layout.item(i).item) || !isUsed(i)) continue;
      end = std::max(end, endOfAll(i, offset + (m_layout[i].offset - node.offset)));
    }
    return end;
  }

 private:
  // The end of all occurrences of an item, of which the first begins at `offset`.
  std::uint64_t endOfAll(std::uint32_t item, std::uint64_t offset) {
    Node const& node = m_layout[item];
    std::uint64_t count = node.most;
    if (node.counter != kNone && m_extent == Extent::present) {
      count = countOf(m_layout, m_set.values(), m_bytes, item, m_occurrence).count;
    }
    if (count == 0) return 0;
    if (node.repeats) m_occurrence.at[node.depth] = count - 1;
    return endOfOne(item, offset + (count - 1) * node.size);
  }

  // Whether an item is no view, or the view that is chosen.
  bool isUsed(std::uint32_t item) const {
    std::uint32_t area = m_layout[item].area;
    return area == kNone || m_set.chooseView(m_record, area, m_bytes, m_occurrence) == item;
  }

  RecordSet const& m_set;
  Layout const& m_layout;
  std::uint32_t m_record;
  RecordBytes m_bytes;
  Extent m_extent;
  Occurrence m_occurrence;
};

}  // namespace

std::uint64_t endOf(RecordSet const& set, std::uint32_t record, RecordBytes bytes, Extent extent) {
  return ExtentWalk(set, record, bytes, extent).endOfOne(0, 0);
}

}  // namespace fdmorph::layout
