#include "xml/markup_places.h"

#include <algorithm>

#include "text/utf8.h"

namespace fdmorph {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";  // a byte order mark is no character

unsigned charactersOf(std::string_view text) {
  return static_cast<unsigned>(
      std::ranges::count_if(text, [](char c) { return !isUtf8Continuation(c); }));
}

}  // namespace

MarkupPlaces::MarkupPlaces(std::string_view content) : m_content(content) {
  m_lines.push_back(content.starts_with(kMark) ? kMark.size() : 0);
  for (std::size_t at = content.find('\n'); at != content.npos; at = content.find('\n', at + 1)) {
    m_lines.push_back(at + 1);
  }
}

// The end of the file for places beyond it. All tags of a file may be on one line.
std::size_t MarkupPlaces::offsetOf(TagPlace place) {
  if (place.line == 0 || place.line > m_lines.size()) return m_content.size();
  bool const isFurther = m_last.line == place.line && m_last.column <= place.column;
  std::size_t offset = isFurther ? m_lastOffset : m_lines[place.line - 1];
  unsigned column = isFurther ? m_last.column : 1;
  for (; column < place.column && offset < m_content.size(); ++column) {
    ++offset;
    while (offset < m_content.size() && isUtf8Continuation(m_content[offset])) ++offset;
  }
  m_last = place;
  m_lastOffset = offset;
  return offset;
}

TagPlace MarkupPlaces::placeOf(std::size_t offset, TagPlace near, std::size_t nearOffset) const {
  if (offset >= m_lines[near.line - 1]) {
    std::string_view const between = m_content.substr(offset, nearOffset - offset);
    return {near.line, near.column - charactersOf(between)};
  }
  auto const line = std::ranges::upper_bound(m_lines, offset) - 1;
  return {static_cast<unsigned>(line - m_lines.begin()) + 1,
          charactersOf(m_content.substr(*line, offset - *line)) + 1};
}

TagPlace MarkupPlaces::beginOf(TagPlace end, std::string_view opener) {
  std::size_t const offset = offsetOf(end);
  if (offset == 0 || m_content[offset - 1] != '>') return end;
  std::size_t const begin = m_content.substr(0, offset).rfind(opener);
  return begin == m_content.npos ? end : placeOf(begin, end, offset);
}

bool MarkupPlaces::isAfterText(TagPlace place) {
  if (place.line == 0 || place.line > m_lines.size()) return false;
  std::size_t const begin = m_lines[place.line - 1];
  std::size_t const end = std::max(offsetOf(place), begin);
  std::string_view const before = m_content.substr(begin, end - begin);
  return before.find_first_not_of(" \t\r") != before.npos;
}

}  // namespace fdmorph
