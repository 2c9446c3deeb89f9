// The part of the input that is in memory.
#pragma once

#include <memory>
#include <string_view>

#include "document/document_reader.h"

namespace fdmorph::document {

class InputWindow {
 public:
  /// `capacity` in bytes, at least 1.
  InputWindow(ReadBlock read, std::size_t capacity);

  /// Begins again, with an input that has not ended.
  void restart() {
    m_begin = m_size = 0;
    m_offset = 0;
    m_isAtEnd = m_hasFailed = false;
  }

  /// The bytes that have been read and not consumed. Valid until readMore().
  [[nodiscard]] std::string_view bytes() const { return {m_bytes.get() + m_begin, m_size}; }

  /// Of the first of them, from the beginning of the input.
  [[nodiscard]] std::uint64_t offset() const { return m_offset; }

  void consume(std::size_t count) {
    m_begin += count;
    m_size -= count;
    m_offset += count;
  }

  /// Reads a block after the bytes, and returns what it has read: nothing at the end of
  /// the input, or if there is no room.
  std::string_view readMore();

  /// Makes room for twice as many bytes, but at most `limit`. False if there are as many.
  [[nodiscard]] bool grow(std::size_t limit);

  [[nodiscard]] bool isFull() const { return m_size == m_capacity; }
  [[nodiscard]] bool isAtEnd() const { return m_isAtEnd; }
  [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

 private:
  ReadBlock m_read;
  std::unique_ptr<char[]> m_bytes;
  std::size_t m_capacity;
  std::size_t m_begin = 0;
  std::size_t m_size = 0;
  std::uint64_t m_offset = 0;
  bool m_isAtEnd = false;
  bool m_hasFailed = false;
};

}  // namespace fdmorph::document
