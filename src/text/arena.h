// Objects that live and die together.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace fdmorph {

/// Hands out default-constructed objects whose addresses stay the same until
/// clear, which ends all of them. Objects are made in blocks
/// that grow with their number.
template <typename Object>
class Arena {
 public:
  Object* create() {
    if (m_used == m_size) {
      m_size = m_blocks.empty() ? kFirstBlock : std::min(2 * m_size, kMaxBlock);
      m_blocks.push_back(std::make_unique<Object[]>(m_size));
      m_used = 0;
    }
    return &m_blocks.back()[m_used++];
  }

  void clear() {
    m_blocks.clear();
    m_size = m_used = 0;
  }

 private:
  static constexpr std::size_t kFirstBlock = 8;
  static constexpr std::size_t kMaxBlock = 512;

  std::vector<std::unique_ptr<Object[]>> m_blocks;
  std::size_t m_size = 0;  // objects of the last block
  std::size_t m_used = 0;  // objects handed out of it
};

}  // namespace fdmorph
