// Objects with one common lifetime.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace fdmorph {

/// Makes objects by their default constructors. Their addresses stay the same
/// until clear, which destroys all of them. Objects are made in blocks that
/// grow with their number.
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
  std::size_t m_used = 0;  // objects of it in use
};

}  // namespace fdmorph
