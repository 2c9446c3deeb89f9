#include "text/text_pool.h"

#include <algorithm>

namespace fdmorph {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{16} << 10;

}  // namespace

std::string_view TextPool::keep(std::string_view text) {
  auto known = m_known.find(text);
  return known != m_known.end() ? *known : *m_known.insert(append(text)).first;
}

std::string_view TextPool::append(std::string_view text) {
  if (m_capacity - m_used < text.size()) {
    m_capacity = std::max(kBlockBytes, text.size());
    m_blocks.push_back(std::make_unique_for_overwrite<char[]>(m_capacity));
    m_used = 0;
  }
  char* copy = m_blocks.empty() ? nullptr : m_blocks.back().get() + m_used;
  std::copy(text.begin(), text.end(), copy);
  m_used += text.size();
  return {copy, text.size()};
}

void TextPool::clear() {
  m_known.clear();
  m_blocks.clear();
  m_used = m_capacity = 0;
}

}  // namespace fdmorph
