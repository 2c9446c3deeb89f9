#include "cobol/component_search.h"

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

// The document of a namespace: an imported one, or else the main document
// unless it is known to have another namespace.
CDMXMLSchemaDoc const* ComponentSearch::documentOf(std::string_view uri) const {
  if (uri.empty()) return m_document;
  if (!m_isIndexed) {
    for (CDMXMLNamespaceSchemaPair const& pair : m_document->importedSchemas) {
      m_importedByNamespace.emplace(pair.getNamespaceURI(), pair.getSchemaDoc());
    }
    m_isIndexed = true;
  }
  auto imported = m_importedByNamespace.find(uri);
  if (imported != m_importedByNamespace.end()) return imported->second;
  bool isOther = !m_document->targetNamespace.empty() && m_document->targetNamespace != uri &&
                 uri != kSchemaNamespace;
  return isOther ? nullptr : m_document;
}

CDMXMLElement* ComponentSearch::findElementByName(CDMXMLElement const* element,
                                                  std::string_view name, Search search) const {
  if (m_document == nullptr) return nullptr;
  NamespaceLookup::Namespace uri = m_namespaces.getTypeNamespace(element, name);
  if (!uri) return nullptr;
  CDMXMLSchemaDoc const* document = documentOf(*uri);
  if (document == nullptr) return nullptr;
  ComponentList const* list = listOf(*document, search);
  return list == nullptr ? nullptr : list->findByName(CDMXMLNode::getNonQualifiedName(name));
}

CDMXMLElement* ComponentSearch::findTypeComplexFirst(CDMXMLElement const* element,
                                                     std::string_view name) const {
  CDMXMLElement* definition = findElementByName(element, name, Search::complexTypes);
  if (definition != nullptr) return definition;
  return findElementByName(element, name, Search::simpleTypes);
}

CDMXMLElement* ComponentSearch::findTypeSimpleFirst(CDMXMLElement const* element,
                                                    std::string_view name) const {
  CDMXMLElement* definition = findElementByName(element, name, Search::simpleTypes);
  if (definition != nullptr) return definition;
  return findElementByName(element, name, Search::complexTypes);
}

}  // namespace fdmorph
