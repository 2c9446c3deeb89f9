// A growing text that is written through a pointer.
#pragma once

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>

namespace fdmorph::document {

/// Owns its memory. Writers ask for room first and then move the end.
class TextBuffer {
 public:
  TextBuffer() = default;

  /// Makes room for `size` more bytes after `end`, which points into the text. The
  /// result is the same place, maybe elsewhere in memory.
  [[nodiscard]] char* reserve(char* end, std::size_t size) {
    if (static_cast<std::size_t>(m_limit - end) >= size) return end;
    return grow(end, size);
  }

  [[nodiscard]] char* begin() { return m_begin.get(); }
  [[nodiscard]] char* end() { return m_end; }
  void setEnd(char* end) { m_end = end; }

  void append(std::string_view text) {
    char* end = reserve(m_end, text.size());
    std::memcpy(end, text.data(), text.size());
    m_end = end + text.size();
  }

  [[nodiscard]] std::string_view text() const {
    return {m_begin.get(), static_cast<std::size_t>(m_end - m_begin.get())};
  }

  void clear() { m_end = m_begin.get(); }

 private:
  struct Free {
    void operator()(char* memory) const { std::free(memory); }
  };

  char* grow(char* end, std::size_t size) {
    auto used = static_cast<std::size_t>(end - m_begin.get());
    std::size_t capacity = used + size + used / 2 + 4096;
    auto* memory = static_cast<char*>(std::realloc(m_begin.get(), capacity));
    if (memory == nullptr) throw std::bad_alloc();
    static_cast<void>(m_begin.release());
    m_begin.reset(memory);
    m_limit = memory + capacity;
    m_end = memory + used;
    return memory + used;
  }

  std::unique_ptr<char, Free> m_begin;
  char* m_end = nullptr;
  char* m_limit = nullptr;
};

}  // namespace fdmorph::document
