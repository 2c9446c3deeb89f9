// Texts that the items of a record share.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace fdmorph {

/// Keeps one copy of each text that it is given; the views that it returns
/// stay good until clear. Records repeat few names very often.
class TextPool {
 public:
  std::string_view keep(std::string_view text);

  /// The same for a text that is new for sure: it isn't looked up, and not
  /// found again.
  std::string_view append(std::string_view text);

  void clear();

 private:
  std::vector<std::unique_ptr<char[]>> m_blocks;
  std::size_t m_used = 0;      // bytes of the last block
  std::size_t m_capacity = 0;  // of the last block
  std::unordered_set<std::string_view> m_known;
};

}  // namespace fdmorph
