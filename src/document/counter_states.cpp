#include "document/counter_states.h"

#include <algorithm>

namespace fdmorph::document {

void CounterStates::clear() {
  std::ranges::fill(m_single, CounterState());
  for (auto& each : m_several) each.clear();
}

CounterState& CounterStates::at(std::uint32_t counter, std::uint64_t offset) {
  std::uint32_t node = m_layout->counters()[counter].node;
  bool isSingle = node == layout::kNone || (*m_layout)[node].depth == 0;
  return isSingle ? m_single[counter] : m_several[counter][offset];
}

void CounterStates::forget(std::uint64_t begin, std::uint64_t end) {
  for (std::uint32_t i = 0; i < m_single.size(); ++i) {
    std::uint32_t node = m_layout->counters()[i].node;
    if (node == layout::kNone) continue;
    if ((*m_layout)[node].depth == 0) {
      std::uint64_t offset = (*m_layout)[node].offset;
      if (offset >= begin && offset < end) m_single[i] = {};
    } else {
      std::erase_if(m_several[i],
                    [&](auto const& each) { return each.first >= begin && each.first < end; });
    }
  }
}

}  // namespace fdmorph::document
