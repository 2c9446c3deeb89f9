// A list of global components that is searched by name.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "xml/DMXMLElement.h"

namespace fdmorph {

/// Global components in document order; duplicates are allowed and the first
/// of a name wins. The list owns nothing.
class ComponentList {
 public:
  void append(CDMXMLElement* component) { m_components.push_back(component); }
  void append(std::vector<CDMXMLElement*> const& components) {
    m_components.insert(m_components.end(), components.begin(), components.end());
  }

  /// The first component whose `name` attribute equals `localName`; null if
  /// none does. Names must not change after the first search.
  CDMXMLElement* findByName(std::string_view localName) const;

  bool empty() const { return m_components.empty(); }
  std::size_t size() const { return m_components.size(); }
  auto begin() const { return m_components.begin(); }
  auto end() const { return m_components.end(); }

 private:
  std::vector<CDMXMLElement*> m_components;
  // Grows behind the list, at the first search after an append.
  mutable std::unordered_map<std::string_view, CDMXMLElement*> m_firstOfName;
  mutable std::size_t m_indexed = 0;
};

}  // namespace fdmorph
