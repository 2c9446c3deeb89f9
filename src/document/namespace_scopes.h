// The namespaces that are declared at a place of a document, by Namespaces in XML 1.0.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace fdmorph::document {

inline constexpr std::string_view kXmlNamespace = "http://www.w3.org/XML/1998/namespace";
inline constexpr std::string_view kXmlnsNamespace = "http://www.w3.org/2000/xmlns/";
inline constexpr std::string_view kSchemaInstanceNamespace =
    "http://www.w3.org/2001/XMLSchema-instance";

class NamespaceScopes {
 public:
  /// The number of the empty prefix, which stands for the default namespace.
  static constexpr std::uint32_t kDefaultPrefix = 0;

  struct Declaration {
    std::uint32_t prefix;
    std::string_view namespaceUri;  ///< empty: the default namespace is none
  };

  NamespaceScopes();

  /// The number of a prefix, which is kept for good.
  std::uint32_t prefixNumber(std::string_view prefix);

  /// Goes into an element that declares something. The views are copied. What is wrong
  /// is returned; then nothing has changed.
  [[nodiscard]] std::optional<std::string> enter(std::vector<Declaration> const& declarations);

  /// Leaves the element entered last.
  void leave();

  /// Equal numbers stand for the same declarations in force.
  [[nodiscard]] std::uint64_t scope() const { return m_scope; }

  /// The namespace of a prefix; the default one may be empty. No value if it is not
  /// declared. Valid until enter() or leave().
  [[nodiscard]] std::optional<std::string_view> namespaceOf(std::uint32_t prefix) const;

  /// The number of elements entered and not left at the declaration of a prefix; 0 if
  /// it is not declared.
  [[nodiscard]] std::size_t depthOf(std::uint32_t prefix) const;

  [[nodiscard]] std::size_t depth() const { return m_elements.size(); }
  [[nodiscard]] std::string const& prefix(std::uint32_t number) const { return m_prefixes[number]; }

 private:
  static constexpr std::uint32_t kNoBinding = UINT32_MAX;

  struct Binding {
    std::uint32_t prefix;
    std::uint32_t hidden;  // the binding of the prefix further out, or kNoBinding
    std::size_t begin;     // of the namespace, in m_namespaces
    std::size_t size;
    std::size_t depth;
  };
  struct Element {
    std::uint64_t outerScope;
    std::size_t bindings;  // outside of it
  };

  void bind(std::uint32_t prefix, std::string_view namespaceUri);
  [[nodiscard]] std::uint64_t scopeOf(std::vector<Declaration> const& declarations);

  std::vector<std::string> m_prefixes;
  std::unordered_map<std::string, std::uint32_t> m_prefixNumbers;
  std::vector<std::uint32_t> m_current;  // the binding in force, by prefix
  std::vector<Binding> m_bindings;
  std::string m_namespaces;
  std::vector<Element> m_elements;
  std::uint64_t m_scope = 1;
  std::uint64_t m_lastScope = 1;
  std::unordered_map<std::string, std::uint64_t> m_scopes;  // by outer scope and declarations
  std::string m_key;
};

}  // namespace fdmorph::document
