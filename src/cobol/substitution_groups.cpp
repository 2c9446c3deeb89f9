#include "cobol/substitution_groups.h"

namespace fdmorph {

SubstitutionGroups::Members const& SubstitutionGroups::membersOf(
    CDMCOBOLRecordItem const* item) const {
  static Members const kNone;
  if (item == nullptr || m_document == nullptr) return kNone;
  if (!m_isIndexed) {
    for (CDMXMLElement* entry : m_document->substitutionGroupElements) {
      NamespaceLookup::Namespace uri = m_namespaces.getElementNamespace(entry);
      if (!uri) continue;
      m_membersByHead[entry->getAttribute("substitutionGroup")->value][*uri].push_back(entry);
    }
    m_isIndexed = true;
  }
  auto byNamespace = m_membersByHead.find(item->identifiedBy);
  if (byNamespace == m_membersByHead.end()) return kNone;
  auto members = byNamespace->second.find(item->xmlNamespace);
  return members == byNamespace->second.end() ? kNone : members->second;
}

}  // namespace fdmorph
