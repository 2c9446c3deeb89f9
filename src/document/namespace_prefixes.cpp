#include "document/namespace_prefixes.h"

#include <algorithm>

#include "document/namespace_scopes.h"

namespace fdmorph::document {

using record::RecordNode;
using record::Role;

NamespacePrefixes::NamespacePrefixes(layout::Layout const& layout)
    : m_own(layout.item(0).namespaceUri) {
  for (RecordNode const& node : layout.tree().nodes()) {
    bool isUsed =
        node.role == Role::attribute || (node.role == Role::element && node.namespaceUri != m_own);
    // Namespaces in XML 1.0, 3: that of XML has its prefix without a declaration.
    if (!isUsed || node.namespaceUri.empty() || node.namespaceUri == kXmlNamespace) continue;
    if (std::ranges::find(m_prefixed, node.namespaceUri) == m_prefixed.end()) {
      m_prefixed.push_back(node.namespaceUri);
    }
  }
  if (!m_own.empty()) m_declarations += " xmlns=\"" + escapedAttribute(m_own) + '"';
  for (std::size_t i = 0; i < m_prefixed.size(); ++i) {
    m_declarations +=
        " xmlns:n" + std::to_string(i + 1) + "=\"" + escapedAttribute(m_prefixed[i]) + '"';
  }
}

std::string NamespacePrefixes::prefixOf(std::string_view namespaceUri) const {
  if (namespaceUri.empty()) return {};
  if (namespaceUri == kXmlNamespace) return "xml:";
  auto at = std::ranges::find(m_prefixed, namespaceUri);
  return 'n' + std::to_string(at - m_prefixed.begin() + 1) + ':';
}

std::string escapedAttribute(std::string_view text) {
  std::string escaped;
  for (char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\t':
        escaped += "&#9;";
        break;
      case '\n':
        escaped += "&#10;";
        break;
      case '\r':
        escaped += "&#13;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

}  // namespace fdmorph::document
