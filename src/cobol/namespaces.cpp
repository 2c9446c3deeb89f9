// CDMCOBOLGenerator: what a prefix stands for, and which types are built in.
// There is no namespace table: declarations are looked up where they stand.

#include "cobol/DMCOBOLGenerator.h"
#include "cobol/builtin_types.h"
#include "text/console.h"

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

bool CDMCOBOLGenerator::getNamespaceURI(CDMXMLElement const* element,
                                        std::string_view attributeName,
                                        std::string_view& uri) const {
  uri = {};
  if (attributeName.empty()) return false;
  bool isDeclaration = isNamespaceDeclaration(attributeName);
  while (element != nullptr) {
    if (isDeclaration) element = element->getNamespaceScope();  // nothing below declares any
    if (element == nullptr) break;
    if (findAttrByName(element, attributeName, uri)) return true;
    element = element->getParent();
  }
  if (attributeName != "xmlns" && attributeName != "targetNamespace") return false;
  if (schemaRootElement != nullptr) findAttrByName(schemaRootElement, "targetNamespace", uri);
  return true;
}

bool CDMCOBOLGenerator::getElementNamespace(CDMXMLElement const* element,
                                            std::string_view& uri) const {
  uri = {};
  return element != nullptr && getNamespaceURI(element, "targetNamespace", uri);
}

bool CDMCOBOLGenerator::getTypeNamespace(CDMXMLElement const* element, std::string_view typeName,
                                         std::string_view& uri) const {
  uri = {};
  if (element == nullptr || typeName.empty()) return false;
  std::string_view qualifier = CDMXMLNode::getNameQualifier(typeName);
  if (qualifier.empty()) return getNamespaceURI(element, "xmlns", uri);
  std::string attributeName = "xmlns:";
  attributeName += qualifier;
  return getNamespaceURI(element, attributeName, uri);
}

bool CDMCOBOLGenerator::isSupportedDefaultSchemaType(CDMXMLElement const* element,
                                                     std::string_view typeName) const {
  std::string_view uri;
  if (!getTypeNamespace(element, typeName, uri) || !isSchemaNamespace(uri)) return false;
  BuiltinTypeClass typeClass = builtinTypeClass(CDMXMLNode::getNonQualifiedName(typeName));
  return typeClass != BuiltinTypeClass::unknown && typeClass != BuiltinTypeClass::list;
}

bool CDMCOBOLGenerator::convertXMLtoCOBOL(CDMCOBOLRecordItem* item, std::string_view typeName) {
  if (item == nullptr || typeName.empty()) return false;
  if (!isSupportedDefaultSchemaType(item->schemaElement, typeName)) return false;
  switch (builtinTypeClass(CDMXMLNode::getNonQualifiedName(typeName))) {
    case BuiltinTypeClass::character:
      item->pictureSymbol = "X";
      return true;
    case BuiltinTypeClass::unsignedInteger:
      item->pictureSymbol = "9";
      return true;
    case BuiltinTypeClass::signedInteger:
      item->pictureSymbol = "S9";
      return false;
    case BuiltinTypeClass::decimal:
      item->hasDecimal = true;
      item->pictureSymbol = "S9";
      return false;
    case BuiltinTypeClass::floatingPoint:
      item->usage = "COMP-1";
      return false;
    case BuiltinTypeClass::doublePrecision:
      item->usage = "COMP-2";
      return false;
    default:
      err() << "Internal Error : Unexpected XML Type encountered. Converting to PIC X by default"
            << endLine;
      item->pictureSymbol = "X";
      return false;
  }
}

}  // namespace fdmorph
