#include "document/json_reader.h"

#include <utility>

namespace fdmorph::document {
namespace {

constexpr std::size_t kWindowBytes = 1U << 18U;
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
    if (!line->isTooLong &&
        line->text.find_first_not_of(" \t\r", begin) == std::string_view::npos) {
      continue;
    }
    record.number = m_recordCount + 1;
    record.line = m_line;
    record.column = 1;
    if (line->isTooLong) {
      record.errors.push_back(
          {.code = ErrorCode::json,
           .text = "a line of more than " + std::to_string(m_options.limits.recordBytes) + " bytes",
           .line = m_line,
           .column = 1});
    } else if (!m_parts.read(line->text, begin, record)) {
      continue;
    }
    if (m_options.keepsText && !line->isTooLong) record.text = line->text;
    ++m_recordCount;
    return true;
  }
}

std::optional<JsonReader::Line> JsonReader::nextLine() {
  m_window.consume(m_lineSize);
  m_lineSize = 0;
  Line line;
  std::size_t searched = 0;
  while (true) {
    std::string_view bytes = m_window.bytes();
    std::size_t end = bytes.find('\n', searched);
    bool isWhole = end != std::string_view::npos;
    if (!isWhole && m_window.isAtEnd() && bytes.empty() && !line.isTooLong) return std::nullopt;
    if (isWhole || m_window.isAtEnd()) {
      m_lineSize = isWhole ? end + 1 : bytes.size();
      line.text = bytes.substr(0, end);
      return line;
    }
    searched = bytes.size();
    if (!m_window.isFull()) {
      static_cast<void>(m_window.readMore());
    } else if (!m_window.grow(m_options.limits.recordBytes)) {
      // The rest of the line is passed over.
      line.isTooLong = true;
      m_window.consume(bytes.size());
      searched = 0;
    }
  }
}

}  // namespace fdmorph::document
