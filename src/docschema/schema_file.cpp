#include "docschema/schema_file.h"

#include <algorithm>

namespace fdmorph::docschema {

std::string NamespaceFile::qualified(std::string_view local) const {
  return m_prefix.empty() ? std::string(local) : m_prefix + ":" + std::string(local);
}

void NamespaceFile::import(NamespaceFile const& other) {
  bool const isKnown = &other == this || std::ranges::find(m_imports, &other) != m_imports.end();
  if (!isKnown) m_imports.push_back(&other);
}

// Types, groups and groups of attributes have names of their own.
std::string NamespaceFile::define(Markup definition, std::string_view name) {
  bool const isType = definition.name == "xs:simpleType" || definition.name == "xs:complexType";
  std::string const kind = isType ? "type " : definition.name + " ";
  std::string unique(name);
  for (int number = 2; !m_names.insert(kind + unique).second; ++number) {
    unique = std::string(name) + "-" + std::to_string(number);
  }
  definition.attributes.insert(definition.attributes.begin(), {"name", unique});
  m_definitions.push_back(std::move(definition));
  return unique;
}

std::string NamespaceFile::defineOnce(Markup definition, std::string_view name) {
  std::string content = printElement(definition);
  auto const known = m_byContent.find(content);
  if (known != m_byContent.end()) return known->second;
  std::string unique = define(std::move(definition), name);
  m_byContent.emplace(std::move(content), unique);
  return unique;
}

std::string NamespaceFile::print() const {
  Markup root{"xs:schema"};
  root.set("xmlns:xs", "http://www.w3.org/2001/XMLSchema");
  auto const declare = [&root](NamespaceFile const& file) {
    bool const needsPrefix = file.hasNamespace() && file.m_namespaceUri != kXmlNamespace;
    if (needsPrefix) root.set("xmlns:" + file.m_prefix, file.m_namespaceUri);
  };
  declare(*this);
  for (NamespaceFile const* each : m_imports) declare(*each);
  if (hasNamespace()) {
    root.set("targetNamespace", m_namespaceUri);
    root.set("elementFormDefault", "qualified");
  }
  for (NamespaceFile const* each : m_imports) {
    Markup& import = root.add({"xs:import"});
    if (each->hasNamespace()) import.set("namespace", each->m_namespaceUri);
    import.set("schemaLocation", each->m_name);
  }
  root.parts.insert(root.parts.end(), m_elements.begin(), m_elements.end());
  root.parts.insert(root.parts.end(), m_definitions.begin(), m_definitions.end());
  return printDocument(root);
}

}  // namespace fdmorph::docschema
