#include "show/lanes.h"

namespace fdmorph::show {
namespace {

using compiler::DataItem;
using record::RecordNode;

/// The lanes of one group. An item is in a lane after the one of the item before it
/// if both overlap, so many items that share their bytes cost one step each.
class LaneChoice {
 public:
  std::uint32_t choose(DataItem const& item) {
    std::uint64_t begin = item.offset;
    std::uint64_t end = begin + item.size * item.occurrences();
    std::size_t lane = begin < m_lastEnd && end > m_lastBegin ? m_last + 1 : 0;
    while (lane < m_ends.size() && m_ends[lane] > begin) ++lane;
    if (lane >= m_ends.size()) m_ends.resize(lane + 1);
    m_ends[lane] = end;
    m_last = lane;
    m_lastBegin = begin;
    m_lastEnd = end;
    return static_cast<std::uint32_t>(lane + 1);
  }

 private:
  std::vector<std::uint64_t> m_ends;  // of the last item of each lane from lane 1 on
  std::size_t m_last = 0;
  std::uint64_t m_lastBegin = 0;
  std::uint64_t m_lastEnd = 0;
};

}  // namespace

std::vector<std::uint32_t> lanesOf(record::RecordTree const& tree) {
  std::vector<RecordNode> const& nodes = tree.nodes();
  std::vector<std::uint32_t> lanes(nodes.size());
  for (std::uint32_t group = 0; group < nodes.size(); ++group) {
    LaneChoice choice;
    for (std::uint32_t i = group + 1; i < nodes[group].end; i = nodes[i].end) {
      DataItem const& item = *nodes[i].item;
      bool isView = item.redefined != nullptr || item.level == compiler::kRenamesLevel;
      if (isView) lanes[i] = choice.choose(item);
    }
  }
  return lanes;
}

}  // namespace fdmorph::show
