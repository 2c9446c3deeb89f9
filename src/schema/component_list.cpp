#include "schema/component_list.h"

namespace fdmorph {

CDMXMLElement* ComponentList::findByName(std::string_view localName) const {
  for (; m_indexed < m_components.size(); ++m_indexed) {
    CDMXMLElement* component = m_components[m_indexed];
    CDMXMLAttribute const* name = component->getAttribute("name");
    if (name != nullptr) m_firstOfName.emplace(name->value, component);
  }
  auto found = m_firstOfName.find(localName);
  return found == m_firstOfName.end() ? nullptr : found->second;
}

}  // namespace fdmorph
