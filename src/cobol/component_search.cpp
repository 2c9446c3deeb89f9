// CDMCOBOLGenerator: the searches for global components, and the test that
// keeps a record from containing itself.

#include "cobol/DMCOBOLGenerator.h"
#include "cobol/builtin_types.h"

namespace fdmorph {
namespace {

ComponentList const* listOf(CDMXMLSchemaDoc const& document, Search search) {
  switch (search) {
    case Search::complexTypes:
      return &document.complexTypes;
    case Search::simpleTypes:
      return &document.simpleTypes;
    case Search::elements:
      return &document.elements;
    case Search::attributes:
      return &document.attributes;
    case Search::groups:
      return &document.groups;
    case Search::attributeGroups:
      return &document.attributeGroups;
    case Search::substitutionGroupElements:
      return &document.substitutionGroupElements;
    case Search::redefinedElements:
      return &document.redefinedElements;
  }
  return nullptr;
}

}  // namespace

// The document that holds a namespace: an imported one, or else the main
// document unless it is known to be of another namespace.
CDMXMLSchemaDoc const* CDMCOBOLGenerator::documentOf(std::string_view uri) const {
  if (uri.empty()) return schemaDoc;
  if (!m_importsIndexed) {
    for (CDMXMLNamespaceSchemaPair const& pair : schemaDoc->importedSchemas) {
      m_importedByNamespace.emplace(pair.getNamespaceURI(), pair.getSchemaDoc());
    }
    m_importsIndexed = true;
  }
  auto imported = m_importedByNamespace.find(uri);
  if (imported != m_importedByNamespace.end()) return imported->second;
  bool isOther = !schemaDoc->targetNamespace.empty() && schemaDoc->targetNamespace != uri &&
                 uri != kSchemaNamespace;
  return isOther ? nullptr : schemaDoc;
}

CDMXMLElement* CDMCOBOLGenerator::findElementByName(CDMXMLElement const* element,
                                                    std::string_view name, Search search) const {
  std::string_view uri;
  if (!getTypeNamespace(element, name, uri) || schemaDoc == nullptr) return nullptr;
  CDMXMLSchemaDoc const* document = documentOf(uri);
  if (document == nullptr) return nullptr;
  ComponentList const* list = listOf(*document, search);
  return list == nullptr ? nullptr : list->findByName(CDMXMLNode::getNonQualifiedName(name));
}

bool CDMCOBOLGenerator::elementHasSubGroup(CDMCOBOLRecordItem const* item,
                                           std::vector<CDMXMLElement*>* members) const {
  if (item == nullptr || schemaDoc == nullptr) return false;
  if (!m_membersIndexed) {
    for (CDMXMLElement* entry : schemaDoc->substitutionGroupElements) {
      m_membersByHead[entry->getAttribute("substitutionGroup")->value].push_back(entry);
    }
    m_membersIndexed = true;
  }
  auto entries = m_membersByHead.find(item->identifiedBy);
  if (entries == m_membersByHead.end()) return false;
  bool hasMember = false;
  for (CDMXMLElement* entry : entries->second) {
    std::string_view uri;
    if (!getElementNamespace(entry, uri) || uri != item->xmlNamespace) continue;
    hasMember = true;
    if (members != nullptr) members->push_back(entry);
  }
  return hasMember;
}

bool CDMCOBOLGenerator::isRecursivePattern(CDMCOBOLRecordItem const* item) const {
  bool isReference = false;
  CDMXMLElement const* target = expansionOf(item, isReference);
  if (target == nullptr) return false;
  for (CDMCOBOLRecordItem const* above = item->parent; above != nullptr; above = above->parent) {
    CDMXMLElement const* open = isReference ? above->schemaElement : above->typeElement;
    if (open == target) return true;
  }
  return false;
}

// The same within a walk. Only what the record has been through can be open
// above the item, which spares nearly every item the climb.
bool CDMCOBOLGenerator::wouldContainItself(CDMCOBOLRecordItem const* item) const {
  bool isReference = false;
  CDMXMLElement const* target = expansionOf(item, isReference);
  return target != nullptr && m_open.hasSeen(target) && isRecursivePattern(item);
}

// The global component that the item's `ref` or `type` is about to expand.
CDMXMLElement const* CDMCOBOLGenerator::expansionOf(CDMCOBOLRecordItem const* item,
                                                    bool& isReference) const {
  if (item == nullptr || item->schemaElement == nullptr) return nullptr;
  std::string_view text;
  isReference = findAttrByName(item->schemaElement, "ref", text);
  if (!isReference && !findAttrByName(item->schemaElement, "type", text)) return nullptr;
  return findElementByName(item->schemaElement, text,
                           isReference ? Search::elements : Search::complexTypes);
}

}  // namespace fdmorph
