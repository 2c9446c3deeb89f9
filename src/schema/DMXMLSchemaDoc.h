// A parsed schema as the conversion sees it: its root, its target namespace
// and one list per kind of global component. `schema_preprocessing.h` fills a
// document from a file and from what the file refers to.
//
// Documents are plain values. They only look at elements and attributes, which
// belong to a CDMXMLNodeStore.
#pragma once

#include <cstddef>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "schema/element_kind.h"
#include "xml/DMXMLElement.h"

namespace fdmorph {

class CDMXMLSchemaDoc;

/// Global components in document order. Duplicates are allowed, and the first
/// of a name wins. The list owns nothing.
class ComponentList {
 public:
  void append(CDMXMLElement* component) { m_components.push_back(component); }
  void append(std::vector<CDMXMLElement*> const& components) {
    m_components.insert(m_components.end(), components.begin(), components.end());
  }

  /// The first component whose `name` attribute equals `localName`; null if
  /// there is none. Names must not change after the first search.
  [[nodiscard]] CDMXMLElement* findByName(std::string_view localName) const;

  bool empty() const { return m_components.empty(); }
  std::size_t size() const { return m_components.size(); }
  auto begin() const { return m_components.begin(); }
  auto end() const { return m_components.end(); }

 private:
  std::vector<CDMXMLElement*> m_components;
  // The index covers the first m_indexed components. A search extends it.
  mutable std::unordered_map<std::string_view, CDMXMLElement*> m_firstOfName;
  mutable std::size_t m_indexed = 0;
};

/// An imported namespace and the document that defines it.
class CDMXMLNamespaceSchemaPair {
 public:
  CDMXMLNamespaceSchemaPair() = default;

  /// Sets both; without a document the pair stays empty.
  CDMXMLNamespaceSchemaPair(std::string_view uri, CDMXMLSchemaDoc const* document);

  /// Stores the URI; an empty one is ignored.
  void setNS(std::string_view uri);

  /// Stores the document, which the caller keeps alive; null is ignored.
  void setSchemaDoc(CDMXMLSchemaDoc const* document);

  std::string const& getNamespaceURI() const { return namespaceURI; }
  CDMXMLSchemaDoc const* getSchemaDoc() const { return schemaDoc; }

  /// The document of the first pair for `uri`; null if there is none.
  [[nodiscard]] static CDMXMLSchemaDoc const* findDocumentByNamespace(
      std::string_view uri, std::list<CDMXMLNamespaceSchemaPair> const& pairs);

 private:
  std::string namespaceURI;
  CDMXMLSchemaDoc const* schemaDoc = nullptr;
};

class CDMXMLSchemaDoc {
 public:
  /// Fills the lists from the root's attributes and children. They are
  /// appended to, so this is called once. False without a root or children.
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
  std::string schemaPath;  ///< base of relative locations; empty if imported
};

/// Match rules for CDMXMLElement::findElement. The key points to a string
/// view. The last rule ignores it.
CDMXMLElement* compareElemByName(CDMXMLElement* element, void* name);
CDMXMLElement* compareElemByAttrType(CDMXMLElement* element, void* attributeName);
CDMXMLElement* compareElemForMultipartSchema(CDMXMLElement* element, void* unused);

/// The value of the attribute `name`; nothing if `element` lacks it. The view
/// lives as long as the element.
[[nodiscard]] inline std::optional<std::string_view> findAttrByName(CDMXMLElement const* element,
                                                                    std::string_view name) {
  CDMXMLAttribute const* attribute = element->getAttribute(name);
  if (attribute == nullptr) return std::nullopt;
  return attribute->value;
}

}  // namespace fdmorph
