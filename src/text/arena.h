// Objects that live and die together.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace fdmorph {

/// Hands out default-constructed objects whose addresses stay the same until
/// clear, which ends all of them. Objects are made in blocks.
template <typename Object>
class Arena {
 public:
  Object* create() {
    if (m_blocks.empty() || m_used == kBlockSize) {
      m_blocks.push_back(std::make_unique<Object[]>(kBlockSize));
      m_used = 0;
    }
    return &m_blocks.back()[m_used++];
  }

  void clear() {
    m_blocks.clear();
    m_used = 0;
  }

 private:
  static constexpr std::size_t kBlockSize = 128;

  std::vector<std::unique_ptr<Object[]>> m_blocks;
  std::size_t m_used = 0;  // objects handed out of the last block
};

}  // namespace fdmorph
