// The names of a document as they are spelled there, and their numbers.
#pragma once

#include <cstdint>
#include <cstring>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "document/name_numbers.h"
#include "document/namespace_scopes.h"

namespace fdmorph::document {

/// The number of an attribute of XMLSchema-instance.
inline constexpr std::uint32_t kSchemaInstanceName = UINT32_MAX - 1;

/// Finds the number of a name by its spelling. A name seen before, in the same scope
/// of namespaces, costs one comparison of strings if it comes after the same name as
/// the last time.
class QualifiedNames {
 public:
  /// A name as it is spelled.
  struct Spelling {
    std::string text;
    std::uint32_t hash = 0;
    std::uint32_t prefix = 0;      ///< in NamespaceScopes
    std::size_t localBegin = 0;    ///< of the local name in `text`
    bool isName = true;            ///< by Namespaces in XML 1.0
    Spelling* follower = nullptr;  ///< the spelling that came after it
    std::uint64_t elementScope = 0;
    std::uint32_t elementNumber = 0;
    std::uint64_t attributeScope = 0;
    std::uint32_t attributeNumber = 0;

    [[nodiscard]] std::string_view local() const {
      return std::string_view(text).substr(localBegin);
    }
    [[nodiscard]] bool hasPrefix() const { return localBegin != 0; }
  };

  /// The most names, and bytes of all names.
  struct Limits {
    std::size_t names;
    std::uint64_t bytes;
  };

  /// `index` and `scopes` must outlive this object.
  QualifiedNames(NameNumbers const& index, NamespaceScopes& scopes, Limits limits);

  /// The spelling of a name that ends with a NUL.
  [[nodiscard]] Spelling& find(char const* name) {
    Spelling* expected = m_last->follower;
    m_last = std::strcmp(expected->text.c_str(), name) == 0 ? expected : search(name);
    return *m_last;
  }

  /// The number of an element or attribute in the current scope, or layout::kNone. No
  /// value if the prefix is not declared.
  [[nodiscard]] std::optional<std::uint32_t> elementNumber(Spelling& spelling) const {
    if (spelling.elementScope == m_scopes->scope()) return spelling.elementNumber;
    return lookUpElement(spelling);
  }
  [[nodiscard]] std::optional<std::uint32_t> attributeNumber(Spelling& spelling) const {
    if (spelling.attributeScope == m_scopes->scope()) return spelling.attributeNumber;
    return lookUpAttribute(spelling);
  }

  /// The number of spellings.
  [[nodiscard]] std::size_t size() const { return m_spellings.size(); }

  /// Whether there are more names than the limits allow.
  [[nodiscard]] bool areTooMany() const { return m_areTooMany; }

 private:
  [[nodiscard]] Spelling* search(std::string_view name);
  [[nodiscard]] std::optional<std::uint32_t> lookUpElement(Spelling& spelling) const;
  [[nodiscard]] std::optional<std::uint32_t> lookUpAttribute(Spelling& spelling) const;
  void enlarge();

  NameNumbers const* m_index;
  NamespaceScopes* m_scopes;
  std::deque<Spelling> m_spellings;    // the first stands for none
  std::vector<std::uint32_t> m_slots;  // an open hash table
  Spelling* m_last;
  Limits m_limits;
  std::uint64_t m_textSize = 0;
  bool m_areTooMany = false;
};

}  // namespace fdmorph::document
