#include "cobol/namespace_lookup.h"

#include <string>

#include "cobol/builtin_types.h"

namespace fdmorph {
namespace {

constexpr std::string_view kW3CRoot = "http://www.w3.org/";
constexpr std::string_view kSchemaName = "XMLSchema";

// Older namespaces of the schema language differ in their year.
bool isSchemaNamespace(std::string_view uri) {
  if (uri == kSchemaNamespace) return true;
  std::size_t root = uri.find(kW3CRoot);
  return root != std::string_view::npos && uri.find(kSchemaName, root) != std::string_view::npos;
}

}  // namespace

NamespaceLookup::Namespace NamespaceLookup::getNamespaceURI(CDMXMLElement const* element,
                                                            std::string_view attributeName) const {
  if (attributeName.empty()) return std::nullopt;
  bool isDeclaration = isNamespaceDeclaration(attributeName);
  while (element != nullptr) {
    if (isDeclaration) element = element->getNamespaceScope();  // nothing below declares any
    if (element == nullptr) break;
    if (Namespace uri = findAttrByName(element, attributeName)) return uri;
    element = element->getParent();
  }
  if (attributeName != "xmlns" && attributeName != "targetNamespace") return std::nullopt;
  CDMXMLElement const* root = m_document == nullptr ? nullptr : m_document->rootElement;
  if (root == nullptr) return std::string_view();
  return findAttrByName(root, "targetNamespace").value_or("");
}

NamespaceLookup::Namespace NamespaceLookup::getElementNamespace(
    CDMXMLElement const* element) const {
  if (element == nullptr) return std::nullopt;
  return getNamespaceURI(element, "targetNamespace");
}

NamespaceLookup::Namespace NamespaceLookup::getTypeNamespace(CDMXMLElement const* element,
                                                             std::string_view typeName) const {
  if (element == nullptr || typeName.empty()) return std::nullopt;
  std::string_view qualifier = CDMXMLNode::getNameQualifier(typeName);
  if (qualifier.empty()) return getNamespaceURI(element, "xmlns");
  std::string attributeName = "xmlns:";
  attributeName += qualifier;
  return getNamespaceURI(element, attributeName);
}

bool NamespaceLookup::isSupportedDefaultSchemaType(CDMXMLElement const* element,
                                                   std::string_view typeName) const {
  Namespace uri = getTypeNamespace(element, typeName);
  if (!uri || !isSchemaNamespace(*uri)) return false;
  BuiltinTypeClass typeClass = builtinTypeClass(CDMXMLNode::getNonQualifiedName(typeName));
  return typeClass != BuiltinTypeClass::unknown && typeClass != BuiltinTypeClass::list;
}

}  // namespace fdmorph
