#include "cobol/recursion.h"

#include <utility>

namespace fdmorph {
namespace {

/// The global component that an item is about to expand.
struct Expansion {
  CDMXMLElement const* target = nullptr;  ///< null if there is none
  bool isReference = false;               ///< named by a `ref`, not by a `type`
};

Expansion expansionOf(CDMCOBOLRecordItem const* item, ComponentSearch const& components) {
  if (item == nullptr || item->schemaElement == nullptr) return {};
  CDMXMLElement const* element = item->schemaElement;
  if (auto ref = findAttrByName(element, "ref")) {
    return {components.findElementByName(element, *ref, Search::elements), true};
  }
  if (auto type = findAttrByName(element, "type")) {
    return {components.findElementByName(element, *type, Search::complexTypes), false};
  }
  return {};
}

bool isOpenAbove(CDMCOBOLRecordItem const* item, Expansion const& expansion) {
  for (CDMCOBOLRecordItem const* above = item->parent; above != nullptr; above = above->parent) {
    CDMXMLElement const* open = expansion.isReference ? above->schemaElement : above->typeElement;
    if (open == expansion.target) return true;
  }
  return false;
}

}  // namespace

bool isRecursivePattern(CDMCOBOLRecordItem const* item, ComponentSearch const& components) {
  Expansion expansion = expansionOf(item, components);
  return expansion.target != nullptr && isOpenAbove(item, expansion);
}

bool OpenDefinitions::wouldRecurse(CDMXMLElement const* definition) const {
  auto opened = m_openedAt.find(definition);
  return opened != m_openedAt.end() && opened->second == m_guardedHops;
}

bool OpenDefinitions::wouldContainItself(CDMCOBOLRecordItem const* item,
                                         ComponentSearch const& components) const {
  Expansion expansion = expansionOf(item, components);
  return expansion.target != nullptr && hasSeen(expansion.target) && isOpenAbove(item, expansion);
}

bool OpenDefinitions::openMember(CDMXMLElement const* member) {
  if (!m_openMembers.insert(member).second) return false;
  note(member);
  return true;
}

void OpenDefinitions::clear() {
  m_openedAt.clear();
  m_openMembers.clear();
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
