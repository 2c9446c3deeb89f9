// The search for the global component that a `ref`, `type` or `base` names.
#pragma once

#include <string_view>
#include <unordered_map>

#include "cobol/namespace_lookup.h"
#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {

/// The lists of a schema document that a search can name.
enum class Search : unsigned {
  complexTypes = 1,
  simpleTypes = 2,
  elements = 3,
  attributes = 4,
  groups = 5,
  attributeGroups = 6,
  substitutionGroupElements = 7,
  redefinedElements = 10,
};

/// Searches the main document and the imported ones. The index of imported
/// documents is built by the first search, so the schema must be complete by
/// then.
class ComponentSearch {
 public:
  /// `document` is the main document (null finds nothing). It and `namespaces`
  /// must outlive the search.
  ComponentSearch(CDMXMLSchemaDoc const* document, NamespaceLookup const& namespaces)
      : m_document(document), m_namespaces(namespaces) {}
  ComponentSearch(ComponentSearch const&) = delete;
  ComponentSearch& operator=(ComponentSearch const&) = delete;

  /// The component that `name` stands for at `element`. Null if the prefix is
  /// undeclared, or if the list has no component of that name.
  [[nodiscard]] CDMXMLElement* findElementByName(CDMXMLElement const* element,
                                                 std::string_view name, Search search) const;

  /// The type of this name: of a complex and a simple type of one name, the
  /// complex one. Null if there is neither.
  [[nodiscard]] CDMXMLElement* findTypeComplexFirst(CDMXMLElement const* element,
                                                    std::string_view name) const;

  /// The same, with the simple type first.
  [[nodiscard]] CDMXMLElement* findTypeSimpleFirst(CDMXMLElement const* element,
                                                   std::string_view name) const;

 private:
  CDMXMLSchemaDoc const* documentOf(std::string_view uri) const;

  CDMXMLSchemaDoc const* m_document;
  NamespaceLookup const& m_namespaces;
  mutable std::unordered_map<std::string_view, CDMXMLSchemaDoc const*> m_importedByNamespace;
  mutable bool m_isIndexed = false;
};

}  // namespace fdmorph
