// CDMXMLSchemaDoc: the flattening of a schema that is spread over files.

#include <algorithm>
#include <memory>

#include "schema/DMXMLSchemaDoc.h"
#include "schema/file_circles.h"
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

// Global attributes stay behind with the file that was included.
bool travelsToMainDocument(CDMXMLElement const* component) {
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

}  // namespace

CDMXMLSchemaDoc* CDMXMLSchemaDoc::PreProcessSchema(CDMXMLElement* element,
                                                   CDMXMLSchemaDoc* mainDocument) {
  if (element == nullptr) return mainDocument;
  std::vector<CDMXMLElement*> parts;
  element->findElement(nullptr, compareElemForMultipartSchema, parts, true);
  if (parts.empty()) return mainDocument;

  std::vector<CDMXMLElement*> pending;  // components on their way to the main root
  for (CDMXMLElement* part : parts) {
    switch (getElementType(part)) {
      case SchemaElementKind::schema:
        rootElement = part;
        break;
      case SchemaElementKind::import:
        importFile(part, mainDocument);
        break;
      case SchemaElementKind::include:
        includeFile(part, mainDocument, pending);
        break;
      default:
        includeFile(part, mainDocument, pending);
        redefineComponents(part, pending);
        break;
    }
  }
  if (mainDocument->rootElement != nullptr) {
    // The parents stay: a walk upward still ends at the root of the own file.
    for (CDMXMLElement* component : pending) mainDocument->rootElement->addChildElement(component);
  }
  InitializeElementLists();
  return mainDocument;
}

void CDMXMLSchemaDoc::includeFile(CDMXMLElement const* part, CDMXMLSchemaDoc* mainDocument,
                                  std::vector<CDMXMLElement*>& pending) {
  std::string_view schemaLocation;
  if (!findAttrByName(part, "schemaLocation", schemaLocation)) return;
  std::string location(schemaLocation);
  bool isUrl = location.find("://") != std::string::npos;
  if (!isUrl && isRelativePath(location)) location = weavePaths(schemaPath, location);
  FileCircles& circles = *mainDocument->m_circles;
  if (!circles.enter(location)) return;
  if (CDMXMLElement* tree = mainDocument->m_loader->load(location)) {
    CDMXMLSchemaDoc included(tree, mainDocument, isUrl ? schemaPath : location);
    mainDocument->namespaceAttributes.splice(mainDocument->namespaceAttributes.end(),
                                             included.namespaceAttributes);
    takeComponents(included, pending);
  }
  circles.leave();
}

// The components take their file's namespace declarations along, as lookups
// from them have to find their own.
void CDMXMLSchemaDoc::takeComponents(CDMXMLSchemaDoc& included,
                                     std::vector<CDMXMLElement*>& pending) {
  if (included.rootElement == nullptr) return;
  for (CDMXMLElement* component : included.rootElement->getChildElements()) {
    if (!travelsToMainDocument(component)) continue;
    for (CDMXMLAttribute* attribute : included.rootElement->getAttributes()) {
      if (declaresPrefix(attribute)) component->addAttribute(attribute);
      if (isTargetNamespace(attribute)) component->addAttribute(attribute);
    }
    pending.push_back(component);
  }
}

void CDMXMLSchemaDoc::redefineComponents(CDMXMLElement const* part,
                                         std::vector<CDMXMLElement*>& pending) {
  for (CDMXMLElement* child : part->getChildElements()) {
    std::string_view name;
    if (!findAttrByName(child, "name", name) || name.empty()) continue;
    auto replaced = std::find_if(pending.begin(), pending.end(), [name](CDMXMLElement* entry) {
      std::string_view entryName;
      return findAttrByName(entry, "name", entryName) && entryName == name;
    });
    if (replaced == pending.end()) continue;
    redefinedElements.append(*replaced);
    pending.erase(replaced);
    pending.push_back(child);
  }
}

void CDMXMLSchemaDoc::importFile(CDMXMLElement const* part, CDMXMLSchemaDoc* mainDocument) {
  std::string_view schemaLocation;
  std::string_view uri;
  if (!findAttrByName(part, "schemaLocation", schemaLocation)) return;
  if (!findAttrByName(part, "namespace", uri)) return;
  std::string location(schemaLocation);
  FileCircles& circles = *mainDocument->m_circles;
  if (!circles.enter(location)) return;
  if (CDMXMLElement* tree = mainDocument->m_loader->load(location)) {
    // What the file itself imports has registered with the main document by
    // the time that its own pair does.
    CDMXMLSchemaDoc& imported =
        mainDocument->m_imported.emplace_back(tree, mainDocument, std::string());
    mainDocument->importedSchemas.emplace_back(uri, &imported);
  }
  circles.leave();
}

}  // namespace fdmorph
