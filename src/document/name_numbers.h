// The numbers that readers give to the names in a document.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "layout/names.h"

namespace fdmorph::document {

enum class NameMatch : std::uint8_t {
  exact,  ///< by namespace and local name
  local,  ///< by local name alone: JSON, and XML with any namespace
};

/// Finds names of documents among those of a layout, which must outlive it. Names that
/// match each other have one number: that of the first of them in the layout.
class NameNumbers {
 public:
  NameNumbers(layout::Names const& names, NameMatch match);

  /// The number of a name in a document, or layout::kNone.
  [[nodiscard]] std::uint32_t find(std::string_view namespaceUri, std::string_view local) const {
    return m_match == NameMatch::exact ? m_names->find(namespaceUri, local)
                                       : m_locals.find({}, local);
  }

  /// The number that readers give to a name of the layout. Those who look for parts of
  /// the layout in a document compare this one.
  [[nodiscard]] std::uint32_t numberOf(std::uint32_t name) const {
    return m_match == NameMatch::exact ? name : m_numbers[name];
  }

  [[nodiscard]] std::string_view localName(std::uint32_t number) const {
    return m_match == NameMatch::exact ? (*m_names)[number].local : m_locals[number].local;
  }

  /// All numbers are less.
  [[nodiscard]] std::size_t size() const {
    return m_match == NameMatch::exact ? m_names->size() : m_locals.size();
  }

 private:
  layout::Names const* m_names;
  NameMatch m_match;
  layout::Names m_locals;                // of NameMatch::local: without namespaces
  std::vector<std::uint32_t> m_numbers;  // of NameMatch::local: by number in the layout
};

}  // namespace fdmorph::document
