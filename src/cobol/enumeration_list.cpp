#include "cobol/enumeration_list.h"

#include <string>

namespace fdmorph {

void EnumerationList::begin() {
  m_hasBegun = true;
  if (CDMXMLNode::getNonQualifiedName(m_holder->name) == "restriction") {
    for (CDMCOBOLRecordItem* condition : m_item->removeConditions()) m_store.release(condition);
  }
  for (std::size_t place = 0; place < m_item->children.size(); ++place) {
    CDMCOBOLRecordItem const* child = m_item->children[place];
    if (child == nullptr || child->levelNumber != kConditionLevel) continue;
    m_places.emplace(child->itemValue, place);
  }
}

void EnumerationList::add(std::string_view value) {
  if (!m_hasBegun) begin();
  std::size_t const end = m_item->children.size();
  auto [entry, isNew] = m_places.emplace(value, end);
  m_number += entry->second;
  if (!isNew) return;
  CDMCOBOLRecordItem* condition = m_store.create();
  condition->levelNumber = kConditionLevel;
  condition->indent = m_item->indent + 1;
  condition->setCOBOLName(m_store.texts().keep("enumerator-" + std::to_string(m_number)),
                          m_store.texts());
  condition->itemValue = value;
  condition->parent = m_item;
  m_item->addChild(condition);
  m_number = 0;
}

}  // namespace fdmorph
