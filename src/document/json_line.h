// A line of JSON that is too long to be in memory as a whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "document/document_reader.h"
#include "document/input_window.h"
#include "document/json_scanner.h"

namespace fdmorph::document {

/// Gives a line to a scanner in pieces of valid UTF-8, up to its line feed or to the
/// first byte that is malformed.
class JsonLine : public JsonSource {
 public:
  /// The line begins where the window does. All objects must outlive this one. What is
  /// passed over goes to `kept`, unless it is null.
  JsonLine(InputWindow& window, std::uint64_t maxBytes, RecordText* kept);

  [[nodiscard]] std::string_view piece() const { return m_piece; }
  [[nodiscard]] std::optional<std::string_view> next(std::size_t used) override;

  /// Of the first byte that is malformed, from the beginning of the line; npos if there
  /// is none in what was read.
  [[nodiscard]] std::size_t malformedAt() const { return m_malformedAt; }

  /// Passes over the rest of the line, its line feed included.
  void finish();

  /// Whether the line has more bytes than allowed.
  [[nodiscard]] bool isTooLong() const { return m_offset > m_maxBytes; }

 private:
  void look();
  void consume(std::size_t count);

  InputWindow& m_window;
  std::uint64_t m_maxBytes;
  RecordText* m_kept;
  std::string_view m_piece;
  std::size_t m_checked = 0;   // bytes of the window that are valid
  std::uint64_t m_offset = 0;  // of the window in the line
  std::size_t m_malformedAt = std::string_view::npos;
  bool m_isWhole = false;  // the piece goes to the end of the line
};

}  // namespace fdmorph::document
