// CDMDOMParser: the copy of a finished document into the tool's own tree.

#include <iostream>
#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMNamedNodeMap.hpp>
#include <xercesc/dom/DOMNode.hpp>
#include <xercesc/framework/XMLFormatter.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "xml/DMDOMErrorHandler.h"
#include "xml/DMDOMFormatTarget.h"
#include "xml/DMDOMParser.h"
#include "xml/entity_guard.h"
#include "xml/transcoding.h"

namespace fdmorph {

using xerces::DOMNode;
using xerces::XMLFormatter;

CDMXMLElement* CDMDOMParser::getXMLDocument() {
  if (!m_bParsed || m_pParser->getDocument() == nullptr) return nullptr;
  m_pFormatter.reset();
  m_pFormatTarget = std::make_unique<CDMDOMFormatTarget>();
  try {
    m_pFormatter =
        std::make_unique<XMLFormatter>(xerces::XMLUni::fgUTF8EncodingString, m_pFormatTarget.get(),
                                       XMLFormatter::NoEscapes, XMLFormatter::UnRep_CharRef);
    CDMXMLElement* top = m_store.newElement();
    top->setParser(this);
    getXMLElement(*m_pParser->getDocument(), top);
    return top;
  } catch (xerces::XMLException const& e) {
    std::cerr << "An error occurred during creation of output transcoder. Msg is: "
              << toLocalText(e.getMessage()) << std::endl;
    return nullptr;
  }
}

void CDMDOMParser::releaseDocument() {
  m_pParser->resetDocumentPool();
  m_pParser->resetCachedGrammarPool();
  m_bParsed = false;
}

void CDMDOMParser::getXMLElement(DOMNode const& node, CDMXMLElement* parent) {
  switch (node.getNodeType()) {
    case DOMNode::ELEMENT_NODE:
      copyElement(node, parent);
      break;
    case DOMNode::TEXT_NODE:
      // Assigned, not appended: of several texts the last one stands.
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

void CDMDOMParser::copyElement(DOMNode const& node, CDMXMLElement* parent) {
  CDMXMLElement* element = m_store.newElement();
  element->setParent(parent);
  element->setParser(this);
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
