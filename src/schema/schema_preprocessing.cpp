#include "schema/schema_preprocessing.h"

#include <utility>

#include "schema/schema_parts.h"
#include "xml/paths.h"

namespace fdmorph {
namespace {

bool declaresPrefix(CDMXMLAttribute const* attribute) {
  return CDMXMLNode::getNonQualifiedName(attribute->name) == "xmlns" ||
         CDMXMLNode::getNameQualifier(attribute->name) == "xmlns";
}

bool isTargetNamespace(CDMXMLAttribute const* attribute) {
  return CDMXMLNode::getNonQualifiedName(attribute->name) == "targetNamespace";
}

// Global attributes are not moved: they stay in the included file.
bool movesToMainDocument(CDMXMLElement const* component) {
  switch (CDMXMLSchemaDoc::getElementType(component)) {
    case SchemaElementKind::element:
    case SchemaElementKind::attributeGroup:
    case SchemaElementKind::simpleType:
    case SchemaElementKind::group:
    case SchemaElementKind::complexType:
      return true;
    default:
      return false;
  }
}

// Adds the components of an included document to `pending`. Each one gets the
// namespace declarations of its file, as lookups from it must find them.
void takeComponents(CDMXMLSchemaDoc const& included, std::vector<CDMXMLElement*>& pending) {
  if (included.rootElement == nullptr) return;
  for (CDMXMLElement* component : included.rootElement->getChildElements()) {
    if (!movesToMainDocument(component)) continue;
    for (CDMXMLAttribute* attribute : included.rootElement->getAttributes()) {
      if (declaresPrefix(attribute)) component->addAttribute(attribute);
      if (isTargetNamespace(attribute)) component->addAttribute(attribute);
    }
    pending.push_back(component);
  }
}

}  // namespace

SchemaSet SchemaPreprocessing::PreProcessSchema(CDMXMLElement* element, std::string path) {
  m_schema.main.schemaPath = std::move(path);
  if (element != nullptr && m_circles.enter(m_schema.main.schemaPath)) {
    readParts(element, m_schema.main);
    m_circles.leave();
  }
  return std::move(m_schema);
}

// Loads what the schema with the top node `element` refers to, and fills
// `document` from it.
void SchemaPreprocessing::readParts(CDMXMLElement* element, CDMXMLSchemaDoc& document) {
  Components parts;
  element->findElement(nullptr, compareElemForMultipartSchema, parts, true);
  if (parts.empty()) return;

  Components pending;  // to be moved under the main root
  for (CDMXMLElement* part : parts) {
    if (m_schema.isTooLarge) return;
    switch (CDMXMLSchemaDoc::getElementType(part)) {
      case SchemaElementKind::schema:
        document.rootElement = part;
        break;
      case SchemaElementKind::import:
        importFile(part);
        break;
      case SchemaElementKind::include:
        includeFile(part, document, pending);
        break;
      default:
        includeFile(part, document, pending);
        redefineComponents(part, pending, document.redefinedElements);
        break;
    }
  }
  if (CDMXMLElement* mainRoot = m_schema.main.rootElement) {
    // The parents stay: a walk upward still ends at the root of the own file.
    for (CDMXMLElement* component : pending) mainRoot->addChildElement(component);
  }
  document.InitializeElementLists();
}

// True if the file at `location` is to be read now.
bool SchemaPreprocessing::enter(std::string const& location) {
  if (m_schema.isTooLarge || !m_circles.enter(location)) return false;
  m_schema.isTooLarge = ++m_filesRead > m_maxFiles;
  if (m_schema.isTooLarge) m_circles.leave();
  return !m_schema.isTooLarge;
}

void SchemaPreprocessing::includeFile(CDMXMLElement const* part, CDMXMLSchemaDoc const& document,
                                      Components& pending) {
  std::optional<std::string_view> schemaLocation = findAttrByName(part, "schemaLocation");
  if (!schemaLocation) return;
  std::string location(*schemaLocation);
  bool isUrl = location.find("://") != std::string::npos;
  if (!isUrl && isRelativePath(location)) location = weavePaths(document.schemaPath, location);
  if (!enter(location)) return;
  if (CDMXMLElement* tree = m_loader.load(location)) {
    CDMXMLSchemaDoc included;
    included.schemaPath = isUrl ? document.schemaPath : location;
    readParts(tree, included);
    std::list<CDMXMLAttribute*>& declarations = m_schema.main.namespaceAttributes;
    declarations.splice(declarations.end(), included.namespaceAttributes);
    takeComponents(included, pending);
  }
  m_circles.leave();
}

void SchemaPreprocessing::importFile(CDMXMLElement const* part) {
  std::optional<std::string_view> schemaLocation = findAttrByName(part, "schemaLocation");
  std::optional<std::string_view> uri = findAttrByName(part, "namespace");
  if (!schemaLocation || !uri) return;
  std::string location(*schemaLocation);
  if (!enter(location)) return;
  if (CDMXMLElement* tree = m_loader.load(location)) {
    // The pair comes after those of the imports inside the file.
    CDMXMLSchemaDoc& document = m_schema.imported.emplace_back();
    readParts(tree, document);
    m_schema.main.importedSchemas.emplace_back(*uri, &document);
  }
  m_circles.leave();
}

}  // namespace fdmorph
