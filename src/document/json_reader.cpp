#include "document/json_reader.h"

#include <algorithm>
#include <utility>

namespace fdmorph::document {
namespace {

constexpr std::size_t kWindowBytes = 1U << 18U;
constexpr std::size_t kMaxWindowBytes = 1U << 20U;  // longer lines are read in pieces
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

JsonReader::JsonReader(ReadBlock read, NameNumbers const& index, ReaderOptions options)
    : m_options(std::move(options)),
      m_window(std::move(read), kWindowBytes),
      m_parts(index, m_options) {}

bool JsonReader::next(DocumentRecord& record) {
  while (true) {
    record.instances.clear();
    record.errors.clear();
    record.text.clear();
    record.isPredicted = false;
    std::optional<Line> line = nextLine();
    if (!line || m_window.hasFailed()) return false;
    ++m_line;
    std::size_t begin = m_line == 1 && line->text.starts_with(kByteOrderMark) ? 3 : 0;
    if (!line->isLong && line->text.find_first_not_of(" \t\r", begin) == std::string_view::npos) {
      continue;
    }
    record.number = m_recordCount + 1;
    record.line = m_line;
    record.column = 1;
    bool const isRead = line->isLong ? readLong(begin, record) : readShort(*line, begin, record);
    if (m_window.hasFailed()) return false;
    if (!isRead) continue;
    ++m_recordCount;
    return true;
  }
}

void JsonReader::restart() {
  m_window.restart();
  m_lineSize = 0;
  m_line = 0;
  m_recordCount = 0;
}

bool JsonReader::readShort(Line line, std::size_t begin, DocumentRecord& record) {
  if (!m_parts.read(line.text, begin, record)) return false;
  if (m_options.keepsText) record.text += line.text;
  return true;
}

bool JsonReader::readLong(std::size_t begin, DocumentRecord& record) {
  std::uint64_t const most = m_options.limits.recordBytes;
  JsonLine line(m_window, most, m_options.keepsText ? &record.text : nullptr);
  bool const isRead = m_parts.readLong(line, begin, record);
  line.finish();
  if (!line.isTooLong()) return isRead;
  record.instances.clear();
  record.errors.clear();
  record.text.clear();
  record.errors.push_back({.code = ErrorCode::json,
                           .text = "a line of more than " + std::to_string(most) + " bytes",
                           .line = m_line,
                           .column = 1});
  record.column = 1;
  return true;
}

std::optional<JsonReader::Line> JsonReader::nextLine() {
  m_window.consume(m_lineSize);
  m_lineSize = 0;
  std::size_t const most = std::min<std::uint64_t>(kMaxWindowBytes, m_options.limits.recordBytes);
  std::size_t searched = 0;
  while (true) {
    std::string_view bytes = m_window.bytes();
    std::size_t end = bytes.find('\n', searched);
    bool isWhole = end != std::string_view::npos;
    if (!isWhole && m_window.isAtEnd() && bytes.empty()) return std::nullopt;
    if (isWhole || m_window.isAtEnd()) {
      m_lineSize = isWhole ? end + 1 : bytes.size();
      return Line{bytes.substr(0, end)};
    }
    searched = bytes.size();
    if (!m_window.isFull()) {
      static_cast<void>(m_window.readMore());
    } else if (!m_window.grow(most)) {
      return Line{bytes, true};
    }
  }
}

}  // namespace fdmorph::document
