// Records as they are handed from the reader to those who convert them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "framing/frame_error.h"

namespace fdmorph::framing {

/// Bytes that are not cleared before they are written to, and whose memory is kept
/// when they get fewer.
class ByteBuffer {
 public:
  [[nodiscard]] char* data() { return m_bytes.get(); }
  [[nodiscard]] char const* data() const { return m_bytes.get(); }
  [[nodiscard]] std::size_t size() const { return m_size; }
  [[nodiscard]] std::size_t capacity() const { return m_capacity; }
  [[nodiscard]] std::string_view view() const { return {m_bytes.get(), m_size}; }

  void clear() { m_size = 0; }

  /// Makes room for `capacity` bytes in all, the present ones included.
  void reserve(std::size_t capacity) {
    if (capacity <= m_capacity) return;
    auto grown = std::make_unique_for_overwrite<char[]>(capacity);
    std::copy_n(m_bytes.get(), m_size, grown.get());
    m_bytes = std::move(grown);
    m_capacity = capacity;
  }

  /// Appended bytes, if there are more than before, have any value.
  void resize(std::size_t size) {
    reserve(size);
    m_size = size;
  }

 private:
  std::unique_ptr<char[]> m_bytes;
  std::size_t m_size = 0;
  std::size_t m_capacity = 0;
};

/// One record in a batch. Places are in Batch::bytes.
struct Frame {
  std::uint64_t offset;  ///< of its first data byte in the file
  std::uint64_t number;  ///< from 1, skipped records counted
  std::size_t begin;     ///< of its data
  std::size_t size;      ///< bytes of its data
  std::size_t rawBegin;  ///< of the record as it is in the file, with descriptor or line end
  std::size_t rawSize;

  /// It is a line with more text after `size` bytes, which is not kept: longer than
  /// FramingRules::maxRecordLength. Blanks at its end do not count.
  bool isCut = false;
};

/// Records that follow one another in a file, and the bytes that they are in. To be
/// used again for the next records, since its memory is kept.
struct Batch {
  ByteBuffer bytes;
  std::vector<Frame> frames;
  std::optional<FrameError> error;  ///< after the last record; it ends the file
  std::uint64_t end = 0;            ///< offset in the file after what was looked at

  [[nodiscard]] std::string_view data(Frame const& frame) const {
    return bytes.view().substr(frame.begin, frame.size);
  }
  [[nodiscard]] std::string_view raw(Frame const& frame) const {
    return bytes.view().substr(frame.rawBegin, frame.rawSize);
  }
};

}  // namespace fdmorph::framing
