#include "document/name_numbers.h"

namespace fdmorph::document {

NameNumbers::NameNumbers(layout::Names const& names, NameMatch match)
    : m_names(&names), m_match(match) {
  if (match == NameMatch::exact) return;
  m_numbers.reserve(names.size());
  for (std::uint32_t i = 0; i < names.size(); ++i) {
    m_numbers.push_back(m_locals.add({}, names[i].local));
  }
}

}  // namespace fdmorph::document
