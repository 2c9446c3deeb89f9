#include "document/json_line.h"

#include <algorithm>

#include "text/utf8.h"

namespace fdmorph::document {

JsonLine::JsonLine(InputWindow& window, std::uint64_t maxBytes, RecordText* kept)
    : m_window(window), m_maxBytes(maxBytes), m_kept(kept) {
  look();
}

// Finds out how much of the window is the line, and valid.
void JsonLine::look() {
  std::string_view const bytes = m_window.bytes();
  std::size_t const end = bytes.find('\n', m_checked);
  bool const isEnd = end != std::string_view::npos || m_window.isAtEnd();
  std::string_view const line = bytes.substr(0, end);
  std::size_t const wrong = findMalformedUtf8(line.substr(m_checked));
  m_isWhole = isEnd;
  if (wrong == std::string_view::npos) {
    m_checked = line.size();
  } else if (m_checked + wrong == line.size() && !isEnd) {
    // The rest of the last character is not here yet.
    m_checked = line.size();
    do {
      --m_checked;
    } while (isUtf8Continuation(line[m_checked]));
  } else {
    m_checked += wrong;
    m_malformedAt = static_cast<std::size_t>(m_offset) + m_checked;
    m_isWhole = true;
  }
  m_piece = line.substr(0, m_checked);
}

std::optional<std::string_view> JsonLine::next(std::size_t used) {
  bool const isFull = used == 0 && m_window.isFull();
  if (m_isWhole || isFull || isTooLong()) return std::nullopt;
  consume(used);
  m_checked -= used;
  std::size_t const before = m_checked;
  bool hasMore = true;
  while (hasMore && m_checked == before && !m_isWhole) {
    hasMore = !m_window.readMore().empty();
    look();
  }
  return m_piece;
}

void JsonLine::consume(std::size_t count) {
  if (m_kept != nullptr) {
    *m_kept += m_window.bytes().substr(0, count);
    if (m_kept->memory().size() > RecordText::kLong) m_kept->spill(0);
  }
  m_window.consume(count);
  m_offset += count;
}

void JsonLine::finish() {
  while (true) {
    std::string_view const bytes = m_window.bytes();
    std::size_t const end = bytes.find('\n');
    consume(std::min(end, bytes.size()));
    if (end != std::string_view::npos) return m_window.consume(1);
    if (m_window.readMore().empty()) return;
  }
}

}  // namespace fdmorph::document
