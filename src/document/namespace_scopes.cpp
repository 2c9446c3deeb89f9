#include "document/namespace_scopes.h"

namespace fdmorph::document {
namespace {

// A scope that is forgotten gets another number when it comes again.
constexpr std::size_t kMaxScopes = 4096;

void appendNumber(std::string& out, std::uint64_t number) {
  out.append(reinterpret_cast<char const*>(&number), sizeof number);
}

}  // namespace

NamespaceScopes::NamespaceScopes() {
  prefixNumber("");
  bind(prefixNumber("xml"), kXmlNamespace);
}

std::uint32_t NamespaceScopes::prefixNumber(std::string_view prefix) {
  auto [at, isNew] = m_prefixNumbers.try_emplace(std::string(prefix),
                                                 static_cast<std::uint32_t>(m_prefixes.size()));
  if (isNew) {
    m_prefixes.emplace_back(prefix);
    m_current.push_back(kNoBinding);
  }
  return at->second;
}

void NamespaceScopes::bind(std::uint32_t prefix, std::string_view namespaceUri) {
  m_bindings.push_back(
      {prefix, m_current[prefix], m_namespaces.size(), namespaceUri.size(), m_elements.size()});
  m_namespaces += namespaceUri;
  m_current[prefix] = static_cast<std::uint32_t>(m_bindings.size() - 1);
}

std::uint64_t NamespaceScopes::scopeOf(std::vector<Declaration> const& declarations) {
  m_key.clear();
  appendNumber(m_key, m_scope);
  for (Declaration const& declaration : declarations) {
    appendNumber(m_key, declaration.prefix);
    appendNumber(m_key, declaration.namespaceUri.size());
    m_key += declaration.namespaceUri;
  }
  if (m_scopes.size() >= kMaxScopes) m_scopes.clear();
  auto [at, isNew] = m_scopes.try_emplace(m_key, m_lastScope + 1);
  if (isNew) ++m_lastScope;
  return at->second;
}

std::optional<std::string> NamespaceScopes::enter(std::vector<Declaration> const& declarations) {
  for (Declaration const& declaration : declarations) {
    std::string const& prefix = m_prefixes[declaration.prefix];
    if (prefix == "xmlns") return "the prefix 'xmlns' is declared";
    if ((prefix == "xml") != (declaration.namespaceUri == kXmlNamespace)) {
      return "the prefix 'xml' and its namespace belong together";
    }
    if (declaration.namespaceUri == kXmlnsNamespace) {
      return "a prefix is declared for the namespace of declarations";
    }
    if (declaration.namespaceUri.empty() && declaration.prefix != kDefaultPrefix) {
      return "the prefix '" + prefix + "' is declared without a namespace";
    }
  }
  std::uint64_t scope = scopeOf(declarations);
  m_elements.push_back({m_scope, m_bindings.size()});
  m_scope = scope;
  for (Declaration const& declaration : declarations) {
    bind(declaration.prefix, declaration.namespaceUri);
  }
  return std::nullopt;
}

void NamespaceScopes::leave() {
  Element const element = m_elements.back();
  m_elements.pop_back();
  m_scope = element.outerScope;
  while (m_bindings.size() > element.bindings) {
    Binding const& binding = m_bindings.back();
    m_current[binding.prefix] = binding.hidden;
    m_namespaces.resize(binding.begin);
    m_bindings.pop_back();
  }
}

std::optional<std::string_view> NamespaceScopes::namespaceOf(std::uint32_t prefix) const {
  if (m_current[prefix] == kNoBinding) {
    if (prefix != kDefaultPrefix) return std::nullopt;
    return "";
  }
  Binding const& binding = m_bindings[m_current[prefix]];
  return std::string_view(m_namespaces).substr(binding.begin, binding.size);
}

std::size_t NamespaceScopes::depthOf(std::uint32_t prefix) const {
  return m_current[prefix] == kNoBinding ? 0 : m_bindings[m_current[prefix]].depth;
}

}  // namespace fdmorph::document
