#include "cobol/substitution_groups.h"

namespace fdmorph {

std::vector<CDMXMLElement*> SubstitutionGroups::membersOf(CDMCOBOLRecordItem const* item) const {
  if (item == nullptr || m_document == nullptr) return {};
  if (!m_isIndexed) {
    for (CDMXMLElement* entry : m_document->substitutionGroupElements) {
      m_membersByHead[entry->getAttribute("substitutionGroup")->value].push_back(entry);
    }
    m_isIndexed = true;
  }
  auto entries = m_membersByHead.find(item->identifiedBy);
  if (entries == m_membersByHead.end()) return {};
  std::vector<CDMXMLElement*> members;
  for (CDMXMLElement* entry : entries->second) {
    if (m_namespaces.getElementNamespace(entry) == item->xmlNamespace) members.push_back(entry);
  }
  return members;
}

}  // namespace fdmorph
