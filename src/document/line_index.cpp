#include "document/line_index.h"

#include <cstring>

namespace fdmorph::document {
namespace {

// A long comment may have any number of lines, and no place in it is asked for.
constexpr std::size_t kMaxPending = 65'536;

}  // namespace

void LineIndex::dropPassed() {
  m_starts.erase(m_starts.begin(), m_starts.begin() + static_cast<std::ptrdiff_t>(m_current));
  m_current = 0;
  if (m_starts.size() > kMaxPending) {
    m_starts[kMaxPending / 2] = m_starts.back();
    m_starts.resize(kMaxPending / 2 + 1);
  }
}

void LineIndex::add(std::string_view bytes) {
  dropPassed();
  char const* const begin = bytes.data();
  char const* const end = begin + bytes.size();
  if (m_unit == Unit::byte) {
    for (char const* p = begin; p != end; ++p) {
      p = static_cast<char const*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
      if (p == nullptr) break;
      auto next = m_end + static_cast<std::uint64_t>(p - begin) + 1;
      m_starts.push_back({next, m_starts.back().line + 1});
    }
  } else {
    char const first = m_unit == Unit::utf16Big ? '\0' : '\n';
    char const second = m_unit == Unit::utf16Big ? '\n' : '\0';
    for (char const* p = begin; p != end; ++p) {
      auto next = m_end + static_cast<std::uint64_t>(p - begin) + 1;
      if (next % 2 != 0) {
        m_half = *p;
      } else if (m_half == first && *p == second) {
        m_starts.push_back({next, m_starts.back().line + 1});
      }
    }
  }
  m_end += bytes.size();
}

}  // namespace fdmorph::document
