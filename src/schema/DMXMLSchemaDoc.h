// The generator's view of a parsed schema: its root, its target namespace and
// one list per kind of global component. Building a document also loads the
// files that it includes, redefines or imports: included and redefined files
// are flattened into the main document, imported ones stay documents of their
// own that are found by namespace.
#pragma once

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "schema/DMXMLNamespaceSchemaPair.h"
#include "schema/component_list.h"
#include "schema/element_kind.h"
#include "schema/schema_loader.h"
#include "xml/DMXMLElement.h"

namespace fdmorph {

class FileCircles;

class CDMXMLSchemaDoc {
 public:
  /// An empty document.
  CDMXMLSchemaDoc();

  /// The main document of a run: `element` is the top node of its tree (null
  /// gives an empty document), `path` its full path, the base of relative
  /// locations. `loader` brings the files that it refers to.
  CDMXMLSchemaDoc(CDMXMLElement* element, std::string path, SchemaLoader& loader);

  /// A document that was loaded for `parent`'s main document.
  CDMXMLSchemaDoc(CDMXMLElement* element, CDMXMLSchemaDoc* parent, std::string path);

  ~CDMXMLSchemaDoc();
  CDMXMLSchemaDoc(CDMXMLSchemaDoc const&) = delete;
  CDMXMLSchemaDoc& operator=(CDMXMLSchemaDoc const&) = delete;

  /// Loads what `element`'s schema refers to into `mainDocument`, and fills
  /// the lists. Missing or invalid files only lack their components; the
  /// loader has reported them.
  CDMXMLSchemaDoc* PreProcessSchema(CDMXMLElement* element, CDMXMLSchemaDoc* mainDocument);

  /// Fills the lists from the root's attributes and children. False without a
  /// root or without children.
  bool InitializeElementLists();

  /// The kind of `element` by the local part of its name.
  static SchemaElementKind getElementType(CDMXMLElement const* element);

  ComponentList complexTypes;
  ComponentList simpleTypes;
  ComponentList elements;
  ComponentList attributes;
  ComponentList groups;
  ComponentList attributeGroups;
  ComponentList substitutionGroupElements;  ///< of any kind, by the attribute
  ComponentList redefinedElements;          ///< what a redefine replaced
  std::list<CDMXMLAttribute*> namespaceAttributes;
  std::list<CDMXMLNamespaceSchemaPair> importedSchemas;  ///< one per import
  CDMXMLElement* rootElement = nullptr;                  ///< the schema element
  std::string targetNamespace;
  std::string schemaPath;  ///< empty for an imported document

 private:
  void includeFile(CDMXMLElement const* part, CDMXMLSchemaDoc* mainDocument,
                   std::vector<CDMXMLElement*>& pending);
  void importFile(CDMXMLElement const* part, CDMXMLSchemaDoc* mainDocument);
  void redefineComponents(CDMXMLElement const* part, std::vector<CDMXMLElement*>& pending);
  void takeComponents(CDMXMLSchemaDoc& included, std::vector<CDMXMLElement*>& pending);

  SchemaLoader* m_loader = nullptr;        // of the main document only, like
  std::unique_ptr<FileCircles> m_circles;  // these: the files seen so far
  std::list<CDMXMLSchemaDoc> m_imported;   // and the imported documents
};

/// Match rules for CDMXMLElement::findElement. The key is a string view, for
/// the last one nothing.
CDMXMLElement* compareElemByName(CDMXMLElement* element, void* name);
CDMXMLElement* compareElemByAttrType(CDMXMLElement* element, void* attributeName);
CDMXMLElement* compareElemForMultipartSchema(CDMXMLElement* element, void* unused);

/// Whether `element` has the attribute `name`; its value, or an empty text,
/// goes into `value` and lives as long as the element.
bool findAttrByName(CDMXMLElement const* element, std::string_view name, std::string_view& value);

}  // namespace fdmorph
