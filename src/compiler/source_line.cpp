#include "compiler/source_line.h"

namespace fdmorph::compiler {
namespace {

// Behind this column a tab is one blank, so that a line of nothing but tabs
// doesn't grow without bound.
constexpr std::size_t kLastTabStop = 65536;

}  // namespace

void SourceLine::set(std::string_view line, std::size_t offset, unsigned tabs) {
  m_text = line;
  m_offset = offset;
  m_hasTabs = line.find('\t') != std::string_view::npos;
  if (!m_hasTabs) return;
  m_expanded.clear();
  m_offsets.clear();
  for (std::size_t i = 0; i < line.size(); ++i) {
    bool isStop = line[i] == '\t' && m_expanded.size() < kLastTabStop;
    std::size_t width = isStop ? tabs - m_expanded.size() % tabs : 1;
    m_expanded.append(width, line[i] == '\t' ? ' ' : line[i]);
    m_offsets.insert(m_offsets.end(), width, static_cast<std::uint32_t>(offset + i));
  }
  m_end = static_cast<std::uint32_t>(offset + line.size());
  m_text = m_expanded;
}

}  // namespace fdmorph::compiler
