#include "document/part_texts.h"

namespace fdmorph::document {

void PartTexts::join(std::uint32_t part, std::uint32_t pieces) {
  Instance& instance = m_instances->all[part];
  std::string& texts = m_instances->texts;
  std::uint64_t begin = texts.size();
  texts.append(texts, instance.textBegin, instance.textSize);
  for (std::size_t i = m_pieces.size() - pieces; i < m_pieces.size(); ++i) {
    texts.append(texts, m_pieces[i].begin, m_pieces[i].size);
  }
  m_pieces.resize(m_pieces.size() - pieces);
  instance.textBegin = begin;
  instance.textSize = texts.size() - begin;
}

}  // namespace fdmorph::document
