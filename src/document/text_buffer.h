// A growing text that is written through a pointer.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

namespace fdmorph::document {

/// Owns its memory. Writers ask for room first and then move the end. They may change
/// the last kTail bytes that they have written.
///
/// A text that is too long to be kept is drained: its beginning leaves the buffer while
/// its end is written.
class TextBuffer {
 public:
  using Drain = std::function<void(std::string_view)>;

  static constexpr std::size_t kTail = 64;  // bytes

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

  /// The offset of a place in the text, drained bytes included.
  [[nodiscard]] std::uint64_t offsetOf(char const* place) const {
    return m_drained + static_cast<std::uint64_t>(place - m_begin.get());
  }

  void append(std::string_view text) {
    char* end = reserve(m_end, text.size());
    std::memcpy(end, text.data(), text.size());
    m_end = end + text.size();
  }

  [[nodiscard]] std::string_view text() const {
    return {m_begin.get(), static_cast<std::size_t>(m_end - m_begin.get())};
  }

  void clear() { m_end = m_begin.get(); }

  /// From now on pieces of text of more than `most` bytes are drained: given to `drain`,
  /// or dropped without it. What is not drained is in text().
  void drainAbove(std::size_t most, Drain drain = {}) {
    m_most = std::max(most, 2 * kTail);
    m_drain = std::move(drain);
    beginPiece();
  }

  /// From now on texts are kept, however long.
  void keepAll() { m_most = 0; }

  /// Begins a piece, which may be drained. What is there stays.
  void beginPiece() {
    m_kept = text().size();
    m_drained = 0;
  }

  /// The bytes of the piece that were drained.
  [[nodiscard]] std::uint64_t drained() const { return m_drained; }

 private:
  struct Free {
    void operator()(char* memory) const { std::free(memory); }
  };

  // Takes what is too long out of the text.
  char* drainUpTo(char* end) {
    char* const from = m_begin.get() + m_kept;
    auto const size = static_cast<std::size_t>(end - from) - kTail;
    if (m_drain) m_drain({from, size});
    std::memmove(from, from + size, kTail);
    m_drained += size;
    return from + kTail;
  }

  char* grow(char* end, std::size_t size) {
    auto used = static_cast<std::size_t>(end - m_begin.get());
    if (m_most != 0 && used > m_kept + m_most) {
      end = drainUpTo(end);
      if (static_cast<std::size_t>(m_limit - end) >= size) return end;
      used = static_cast<std::size_t>(end - m_begin.get());
    }
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
  std::size_t m_most = 0;       // bytes of a piece that is kept; 0: any
  std::size_t m_kept = 0;       // bytes before the piece
  std::uint64_t m_drained = 0;  // bytes
  Drain m_drain;
};

}  // namespace fdmorph::document
