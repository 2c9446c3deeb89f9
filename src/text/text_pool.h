// Texts that the items of a record share.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace fdmorph {

/// Keeps one copy of each text, because records repeat a few names very often.
/// The views that it returns are valid until clear.
class TextPool {
 public:
  /// A view of the pool's copy of `text`.
  std::string_view keep(std::string_view text);

  /// Keeps a text that is known to be new, without looking it up. keep does not
  /// find it later.
  std::string_view append(std::string_view text);

  void clear();

 private:
  std::vector<std::unique_ptr<char[]>> m_blocks;
  std::size_t m_used = 0;      // bytes of the last block
  std::size_t m_capacity = 0;  // of the last block
  std::unordered_set<std::string_view> m_known;
};

}  // namespace fdmorph
