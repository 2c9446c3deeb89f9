#include "xml/tree_building.h"

#include <iostream>
#include <xercesc/dom/DOMNamedNodeMap.hpp>

#include "text/status_line.h"

namespace fdmorph {

using xerces::DOMNode;

CDMXMLElement* TreeBuilder::build(DOMNode const& document) {
  CDMXMLElement* top = m_store.newElement();
  top->setFormatter(m_formatter);
  getXMLElement(document, top);
  return top;
}

void TreeBuilder::getXMLElement(DOMNode const& node, CDMXMLElement* parent) {
  switch (node.getNodeType()) {
    case DOMNode::ELEMENT_NODE:
      copyElement(node, parent);
      break;
    case DOMNode::TEXT_NODE:
      // Assigned, not appended: the last of several texts is kept.
      if (parent != nullptr) parent->value = toMultibyte(node.getNodeValue());
      break;
    case DOMNode::DOCUMENT_NODE:
      for (DOMNode* child = node.getFirstChild(); child != nullptr;
           child = child->getNextSibling()) {
        getXMLElement(*child, parent);
      }
      break;
    case DOMNode::CDATA_SECTION_NODE:
    case DOMNode::ENTITY_REFERENCE_NODE:
    case DOMNode::ENTITY_NODE:
    case DOMNode::PROCESSING_INSTRUCTION_NODE:
    case DOMNode::COMMENT_NODE:
    case DOMNode::DOCUMENT_TYPE_NODE:
      break;
    default:
      std::cerr << "Unrecognized node type = " << static_cast<int>(node.getNodeType()) << std::endl;
      break;
  }
}

void TreeBuilder::copyElement(DOMNode const& node, CDMXMLElement* parent) {
  statusLine.poll();
  CDMXMLElement* element = m_store.newElement();
  element->setParent(parent);
  element->setFormatter(m_formatter);
  element->name = toMultibyte(node.getNodeName());
  parent->addChildElement(element);
  xerces::DOMNamedNodeMap const* map = node.getAttributes();
  for (XMLSize_t i = 0; i < map->getLength(); ++i) {
    DOMNode const* original = map->item(i);
    CDMXMLAttribute* attribute = m_store.newAttribute();
    attribute->setParent(element);
    attribute->name = toMultibyte(original->getNodeName());
    attribute->value = toMultibyte(original->getNodeValue());
    element->addAttribute(attribute);
  }
  for (DOMNode* child = node.getFirstChild(); child != nullptr; child = child->getNextSibling()) {
    getXMLElement(*child, element);
  }
}

}  // namespace fdmorph
