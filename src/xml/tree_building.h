// The copy of a finished document into the tool's own tree. For this folder
// only.
#pragma once

#include <xercesc/dom/DOMNode.hpp>

#include "xml/node_store.h"
#include "xml/transcoding.h"

namespace fdmorph {

/// Builds one tree, which belongs to the store.
class TreeBuilder {
 public:
  explicit TreeBuilder(CDMXMLNodeStore& store)
      : m_store(store), m_formatter(store.newFormatter()) {}

  /// The top node of the tree of `document`.
  CDMXMLElement* build(xerces::DOMNode const& document);

 private:
  void getXMLElement(xerces::DOMNode const& node, CDMXMLElement* parent);
  void copyElement(xerces::DOMNode const& node, CDMXMLElement* parent);

  CDMXMLNodeStore& m_store;
  XmlFormatter* m_formatter;
};

}  // namespace fdmorph
