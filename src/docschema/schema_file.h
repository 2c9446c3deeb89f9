// One file of an XML Schema: the components of one namespace.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "docschema/markup.h"

namespace fdmorph::docschema {

/// The namespace whose prefix is always "xml" and is never declared.
inline constexpr std::string_view kXmlNamespace = "http://www.w3.org/XML/1998/namespace";

/// The components of one namespace.
class NamespaceFile {
 public:
  NamespaceFile(std::string_view namespaceUri, std::string prefix, std::string name)
      : m_namespaceUri(namespaceUri), m_prefix(std::move(prefix)), m_name(std::move(name)) {}

  [[nodiscard]] std::string_view namespaceUri() const { return m_namespaceUri; }
  [[nodiscard]] std::string const& name() const { return m_name; }
  [[nodiscard]] bool hasNamespace() const { return !m_namespaceUri.empty(); }

  /// The name of a component of this file in any file that imports it.
  [[nodiscard]] std::string qualified(std::string_view local) const;

  /// Notes that the components of another file are used here.
  void import(NamespaceFile const& other);

  /// A global element.
  void addElement(Markup element) { m_elements.push_back(std::move(element)); }

  /// Adds a definition and names it after `name`, with a number if there is another of
  /// its kind with that name. The result is its name.
  std::string define(Markup definition, std::string_view name);

  /// The same, but a definition that is there already is used again.
  std::string defineOnce(Markup definition, std::string_view name);

  [[nodiscard]] std::string print() const;

 private:
  std::string m_namespaceUri;
  std::string m_prefix;
  std::string m_name;
  std::vector<NamespaceFile const*> m_imports;
  std::vector<Markup> m_elements;
  std::vector<Markup> m_definitions;
  std::unordered_set<std::string> m_names;                   // of definitions, after their kind
  std::unordered_map<std::string, std::string> m_byContent;  // the names of those used again
};

}  // namespace fdmorph::docschema
