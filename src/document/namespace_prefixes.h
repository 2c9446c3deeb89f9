// The prefixes and declarations of namespaces in the documents of a record.
//
// The namespace of the record is the default namespace. Each other namespace, and that
// of the record if an attribute uses it, has a prefix n1, n2, ... in the order of first
// use in the layout. The namespace of XML itself has the prefix xml, undeclared.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "layout/layout.h"

namespace fdmorph::document {

class NamespacePrefixes {
 public:
  explicit NamespacePrefixes(layout::Layout const& layout);

  /// The declarations on the element of the record, each with a blank before it.
  [[nodiscard]] std::string const& declarations() const { return m_declarations; }

  /// The namespace of the record.
  [[nodiscard]] std::string_view own() const { return m_own; }

  /// The prefix and colon of an attribute, or of an element that is not in the
  /// namespace of the record; empty if it has none.
  [[nodiscard]] std::string prefixOf(std::string_view namespaceUri) const;

 private:
  std::string_view m_own;
  std::vector<std::string_view> m_prefixed;  // the first has the prefix n1
  std::string m_declarations;
};

/// A text as it stands in the value of an attribute.
[[nodiscard]] std::string escapedAttribute(std::string_view text);

}  // namespace fdmorph::document
