#include "compiler/source_line.h"

namespace fdmorph::compiler {

void SourceLine::set(std::string_view line, std::size_t offset, unsigned tabs) {
  m_text = line;
  m_offset = offset;
  m_hasTabs = line.find('\t') != std::string_view::npos;
  if (!m_hasTabs) return;
  m_expanded.clear();
  m_offsets.clear();
  for (std::size_t i = 0; i < line.size(); ++i) {
    std::size_t width = line[i] == '\t' ? tabs - m_expanded.size() % tabs : 1;
    m_expanded.append(width, line[i] == '\t' ? ' ' : line[i]);
    m_offsets.insert(m_offsets.end(), width, static_cast<std::uint32_t>(offset + i));
  }
  m_end = static_cast<std::uint32_t>(offset + line.size());
  m_text = m_expanded;
}

}  // namespace fdmorph::compiler
