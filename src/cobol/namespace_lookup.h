// The namespaces of elements and of the prefixes in type names.
//
// There is no namespace table. A lookup climbs from an element to its parents
// and reads the declarations where they are written. The root of the main
// schema is the last resort.
#pragma once

#include <optional>
#include <string_view>

#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {

/// Answers for one schema. The views in the answers live as long as the
/// schema's nodes.
class NamespaceLookup {
 public:
  using Namespace = std::optional<std::string_view>;

  /// `document` is the main document; it must outlive the lookup. Null means
  /// that there is no main root.
  explicit NamespaceLookup(CDMXMLSchemaDoc const* document) : m_document(document) {}

  /// The target namespace that applies to `element`; nothing for null.
  [[nodiscard]] Namespace getElementNamespace(CDMXMLElement const* element) const;

  /// The namespace bound to the prefix of `typeName`, seen from `element`.
  /// Nothing if the prefix is undeclared, for null and for an empty name.
  [[nodiscard]] Namespace getTypeNamespace(CDMXMLElement const* element,
                                           std::string_view typeName) const;

  /// The value of the nearest attribute of this name, from `element` upward.
  /// Without one, "xmlns" and "targetNamespace" stand for the main schema's
  /// target namespace, or an empty text, and any other name for nothing.
  [[nodiscard]] Namespace getNamespaceURI(CDMXMLElement const* element,
                                          std::string_view attributeName) const;

  /// True if `typeName`, seen from `element`, is a built-in type with a COBOL
  /// form.
  [[nodiscard]] bool isSupportedDefaultSchemaType(CDMXMLElement const* element,
                                                  std::string_view typeName) const;

 private:
  CDMXMLSchemaDoc const* m_document;
};

}  // namespace fdmorph
