#include "fdrec/stored_form.h"

#include <algorithm>

namespace fdmorph::fdrec {

using framing::Format;

std::string_view StoredForm::assemble(document::EncodedRecord const& record,
                                      document::Residue const& residue) {
  framing::FramingRules const& framing = m_input.framing();
  std::string_view const bytes(reinterpret_cast<char const*>(record.bytes.data()),
                               record.bytes.size());
  bool const isFixed = framing.format == Format::fixed;
  bool const isAsStored = !m_input.set().rules().hasCounts && !residue.length &&
                          residue.runs.empty() &&
                          (!isFixed || bytes.size() == framing.recordLength);
  if (isAsStored) {
    bool const isLine = framing.format == Format::lines;
    return isLine ? bytes.substr(0, bytes.find_last_not_of(framing.blank) + 1) : bytes;
  }
  m_bytes.clear();
  append(record.bytes);
  if (m_input.set().rules().hasCounts) {
    if (auto at = m_input.lengths().countsAt) m_bytes.resize(*at, framing.blank);
    append(record.counts);
    if (isFixed) m_bytes.resize(framing.recordLength, '\0');
  } else if (isFixed) {
    m_bytes.resize(framing.recordLength, framing.blank);
  } else if (framing.format == Format::lines) {
    m_bytes.resize(m_bytes.find_last_not_of(framing.blank) + 1);
  }
  if (residue.length) m_bytes.resize(*residue.length, framing.blank);
  for (document::Residue::Run const& run : residue.runs) {
    if (run.offset >= m_bytes.size()) continue;
    std::size_t size = std::min(run.bytes.size(), m_bytes.size() - run.offset);
    m_bytes.replace(run.offset, size, run.bytes, 0, size);
  }
  return m_bytes;
}

}  // namespace fdmorph::fdrec
