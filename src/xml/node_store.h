// The owner of document trees.
#pragma once

#include <memory>
#include <vector>

#include "text/arena.h"
#include "xml/DMXMLElement.h"

namespace fdmorph {

/// Owns the nodes of any number of trees, and their formatters. Flattening a
/// schema puts one node under several parents, so nodes are not destroyed one by
/// one, but all together with the store.
class CDMXMLNodeStore {
 public:
  CDMXMLNodeStore();
  ~CDMXMLNodeStore();
  CDMXMLNodeStore(CDMXMLNodeStore const&) = delete;
  CDMXMLNodeStore& operator=(CDMXMLNodeStore const&) = delete;

  CDMXMLElement* newElement() { return m_elements.create(); }
  CDMXMLAttribute* newAttribute() { return m_attributes.create(); }

  /// A formatter for the elements of one tree.
  XmlFormatter* newFormatter();

  /// A second tree with the content that `top` was built with. Attributes of
  /// other elements in its lists are not copied. The copy has no parent and no
  /// formatter.
  CDMXMLElement* copyTree(CDMXMLElement const& top);

 private:
  CDMXMLElement* copyElement(CDMXMLElement const& original);

  Arena<CDMXMLElement> m_elements;
  Arena<CDMXMLAttribute> m_attributes;
  std::vector<std::unique_ptr<XmlFormatter>> m_formatters;
};

}  // namespace fdmorph
