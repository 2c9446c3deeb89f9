#include "cobol/open_definitions.h"

#include <utility>

namespace fdmorph {

bool OpenDefinitions::wouldRecurse(CDMXMLElement const* definition) const {
  auto opened = m_openedAt.find(definition);
  return opened != m_openedAt.end() && opened->second == m_guardedHops;
}

OpenDefinitions::Scope::Scope(OpenDefinitions& definitions, CDMXMLElement const* definition,
                              Hop hop)
    : m_definitions(definitions), m_definition(definition), m_hop(hop) {
  if (m_hop == Hop::guarded) ++m_definitions.m_guardedHops;
  m_openedBefore =
      std::exchange(m_definitions.m_openedAt[m_definition], m_definitions.m_guardedHops);
}

OpenDefinitions::Scope::~Scope() {
  m_definitions.m_openedAt[m_definition] = m_openedBefore;
  if (m_hop == Hop::guarded) --m_definitions.m_guardedHops;
}

}  // namespace fdmorph
