// The global elements that become records.
#pragma once

#include <vector>

#include "cobol/namespace_lookup.h"
#include "schema/DMXMLSchemaDoc.h"

namespace fdmorph {

/// The head elements of a schema: the global elements that no other element
/// refers to, in document order.
struct HeadElements {
  std::vector<CDMXMLElement*> all;

  /// The head element if there is exactly one, otherwise null.
  [[nodiscard]] CDMXMLElement* single() const { return all.size() == 1 ? all.front() : nullptr; }
};

/// Finds the head elements of a main document, and reports when there is not
/// exactly one. Imported documents are a fallback: their elements count only
/// if the main schema has no candidate. Null and a document without a root
/// have no head elements, without a message.
[[nodiscard]] HeadElements findHeadElements(CDMXMLSchemaDoc const* document,
                                            NamespaceLookup const& namespaces);

}  // namespace fdmorph
