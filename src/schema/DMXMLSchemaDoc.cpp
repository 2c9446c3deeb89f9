#include "schema/DMXMLSchemaDoc.h"

#include <utility>

#include "schema/file_circles.h"

namespace fdmorph {

CDMXMLSchemaDoc::CDMXMLSchemaDoc() = default;
CDMXMLSchemaDoc::~CDMXMLSchemaDoc() = default;

CDMXMLSchemaDoc::CDMXMLSchemaDoc(CDMXMLElement* element, std::string path, SchemaLoader& loader)
    : schemaPath(std::move(path)), m_loader(&loader), m_circles(std::make_unique<FileCircles>()) {
  if (element == nullptr) return;
  m_circles->enter(schemaPath);
  PreProcessSchema(element, this);
  m_circles->leave();
}

CDMXMLSchemaDoc::CDMXMLSchemaDoc(CDMXMLElement* element, CDMXMLSchemaDoc* parent, std::string path)
    : schemaPath(std::move(path)) {
  if (element != nullptr) PreProcessSchema(element, parent);
}

SchemaElementKind CDMXMLSchemaDoc::getElementType(CDMXMLElement const* element) {
  return schemaElementKind(CDMXMLNode::getNonQualifiedName(element->name));
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

bool findAttrByName(CDMXMLElement const* element, std::string_view name, std::string_view& value) {
  CDMXMLAttribute const* attribute = element->getAttribute(name);
  value = attribute == nullptr ? std::string_view() : std::string_view(attribute->value);
  return attribute != nullptr;
}

}  // namespace fdmorph
