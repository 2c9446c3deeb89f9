#include "document/input_window.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace fdmorph::document {

InputWindow::InputWindow(ReadBlock read, std::size_t capacity)
    : m_read(std::move(read)),
      m_bytes(std::make_unique_for_overwrite<char[]>(capacity)),
      m_capacity(capacity) {}

std::string_view InputWindow::readMore() {
  if (m_isAtEnd || isFull()) return {};
  if (m_begin != 0) {
    std::memmove(m_bytes.get(), m_bytes.get() + m_begin, m_size);
    m_begin = 0;
  }
  std::span<char> room(m_bytes.get() + m_size, m_capacity - m_size);
  std::optional<std::size_t> count = m_read(room);
  if (count.value_or(0) == 0) {
    m_isAtEnd = true;
    m_hasFailed = !count.has_value();
    return {};
  }
  m_size += *count;
  return {room.data(), *count};
}

bool InputWindow::grow(std::size_t limit) {
  if (m_capacity >= limit) return false;
  std::size_t capacity = m_capacity > limit / 2 ? limit : m_capacity * 2;
  auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
  std::memcpy(bytes.get(), m_bytes.get() + m_begin, m_size);
  m_bytes = std::move(bytes);
  m_capacity = capacity;
  m_begin = 0;
  return true;
}

}  // namespace fdmorph::document
