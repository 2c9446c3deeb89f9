#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {

CDMXMLElement* ComponentList::findByName(std::string_view localName) const {
  for (; m_indexed < m_components.size(); ++m_indexed) {
    CDMXMLElement* component = m_components[m_indexed];
    std::optional<std::string_view> name = findAttrByName(component, "name");
    if (name) m_firstOfName.emplace(*name, component);
  }
  auto found = m_firstOfName.find(localName);
  return found == m_firstOfName.end() ? nullptr : found->second;
}

CDMXMLNamespaceSchemaPair::CDMXMLNamespaceSchemaPair(std::string_view uri,
                                                     CDMXMLSchemaDoc const* document) {
  if (document == nullptr) return;
  setNS(uri);
  setSchemaDoc(document);
}

void CDMXMLNamespaceSchemaPair::setNS(std::string_view uri) {
  if (!uri.empty()) namespaceURI = uri;
}

void CDMXMLNamespaceSchemaPair::setSchemaDoc(CDMXMLSchemaDoc const* document) {
  if (document != nullptr) schemaDoc = document;
}

CDMXMLSchemaDoc const* CDMXMLNamespaceSchemaPair::findDocumentByNamespace(
    std::string_view uri, std::list<CDMXMLNamespaceSchemaPair> const& pairs) {
  for (CDMXMLNamespaceSchemaPair const& pair : pairs) {
    if (pair.namespaceURI == uri) return pair.schemaDoc;
  }
  return nullptr;
}

SchemaElementKind CDMXMLSchemaDoc::getElementType(CDMXMLElement const* element) {
  return schemaElementKind(element);
}

bool CDMXMLSchemaDoc::InitializeElementLists() {
  if (rootElement == nullptr) return false;
  CDMXMLElement* first = rootElement->getFirstChildElem();
  if (first == nullptr) return false;
  for (CDMXMLAttribute* attribute : rootElement->getAttributes()) {
    std::string_view local = CDMXMLNode::getNonQualifiedName(attribute->name);
    if (local == "targetNamespace") {
      targetNamespace = attribute->value;
    } else if (local == "xmlns" || CDMXMLNode::getNameQualifier(attribute->name) == "xmlns") {
      namespaceAttributes.push_back(attribute);
    }
  }
  auto fill = [first](ComponentList& list, CDMXMLElement::Match match, std::string_view key) {
    std::vector<CDMXMLElement*> found;
    first->findElement(&key, match, found, false);
    list.append(found);
  };
  fill(complexTypes, compareElemByName, "complexType");
  fill(simpleTypes, compareElemByName, "simpleType");
  fill(groups, compareElemByName, "group");
  fill(attributeGroups, compareElemByName, "attributeGroup");
  fill(elements, compareElemByName, "element");
  fill(attributes, compareElemByName, "attribute");
  fill(substitutionGroupElements, compareElemByAttrType, "substitutionGroup");
  return true;
}

CDMXMLElement* compareElemByName(CDMXMLElement* element, void* name) {
  std::string_view wanted = *static_cast<std::string_view*>(name);
  bool isEqual =
      CDMXMLNode::getNonQualifiedName(element->name) == CDMXMLNode::getNonQualifiedName(wanted);
  return isEqual ? element : nullptr;
}

CDMXMLElement* compareElemByAttrType(CDMXMLElement* element, void* attributeName) {
  std::string_view wanted = *static_cast<std::string_view*>(attributeName);
  bool hasAttribute = element->getAttribute(CDMXMLNode::getNonQualifiedName(wanted)) != nullptr;
  return hasAttribute ? element : nullptr;
}

CDMXMLElement* compareElemForMultipartSchema(CDMXMLElement* element, void*) {
  switch (CDMXMLSchemaDoc::getElementType(element)) {
    case SchemaElementKind::schema:
    case SchemaElementKind::import:
    case SchemaElementKind::include:
    case SchemaElementKind::redefine:
      return element;
    default:
      return nullptr;
  }
}

}  // namespace fdmorph
