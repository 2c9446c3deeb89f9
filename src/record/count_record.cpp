#include "record/count_record.h"

#include <algorithm>

namespace fdmorph::record {
namespace {

using compiler::DataItem;

// Nested tables of the largest number of occurrences exceed every size.
constexpr std::uint64_t kMaxSize = std::uint64_t{1} << 62U;

std::uint64_t product(std::uint64_t size, std::uint64_t count) {
  return count != 0 && size > kMaxSize / count ? kMaxSize : size * count;
}

}  // namespace

CountRecord::CountRecord(DataItem const& record) {
  m_size = add(record, 0, 0);
}

// Adds the counts of an item and returns their size. The recursion is bounded by
// the number of levels.
std::uint64_t CountRecord::add(DataItem const& item, std::uint32_t depth, std::uint64_t offset) {
  std::size_t at = m_nodes.size();
  CountNode node{&item, depth};
  node.hasCount = item.xml != nullptr && !item.xml->countIn.name.empty();
  node.offset = offset;
  node.occurrences = item.occurrences();
  m_nodes.push_back(node);
  std::uint64_t begin = node.groupOffset();
  std::uint64_t size = 0;
  if (node.occurrences > 0) {
    for (DataItem const* each = item.firstChild; each != nullptr; each = each->next) {
      size = std::min(size + add(*each, depth + 1, begin + size), kMaxSize);
    }
  }
  if (!node.hasCount && size == 0) {
    m_nodes.pop_back();
    return 0;
  }
  m_nodes[at].hasGroup = size > 0;
  m_nodes[at].groupSize = size;
  m_nodes[at].end = static_cast<std::uint32_t>(m_nodes.size());
  return std::min((node.hasCount ? kCountSize : 0) + product(size, node.occurrences), kMaxSize);
}

}  // namespace fdmorph::record
