#include "xml/DMXMLElement.h"

#include <algorithm>

#include "xml/DMDOMFormatTarget.h"

namespace fdmorph {
namespace {

bool declaresNamespace(CDMXMLAttribute const* attribute) {
  return isNamespaceDeclaration(attribute->name);
}

template <typename Node>
void append(std::vector<Node*>& list, Node* node) {
  Node* last = list.empty() ? nullptr : list.back();
  if (last != nullptr) {
    last->setNextSibling(node);
    node->setPrevSibling(last);
  }
  list.push_back(node);
}

}  // namespace

bool isNamespaceDeclaration(std::string_view attributeName) {
  return attributeName == "targetNamespace" || attributeName == "xmlns" ||
         attributeName.substr(0, 6) == "xmlns:";
}

std::string_view CDMXMLNode::getNameQualifier(std::string_view name) {
  std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? std::string_view() : name.substr(0, colon);
}

std::string_view CDMXMLNode::getNonQualifiedName(std::string_view name) {
  std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

void CDMXMLElement::addAttribute(CDMXMLAttribute* attribute) {
  append(attributes, attribute);
}

void CDMXMLElement::addChildElement(CDMXMLElement* child) {
  append(childElements, child);
  child->setNextSibling(nullptr);
  if (childElements.size() == 1) child->setPrevSibling(nullptr);
}

CDMXMLAttribute* CDMXMLElement::getFirstAttr() const {
  return attributes.empty() ? nullptr : attributes.front();
}

CDMXMLAttribute* CDMXMLElement::getNextAttr(CDMXMLAttribute const* attribute) {
  return attribute->getNextSibling();
}

CDMXMLAttribute* CDMXMLElement::getPrevAttr(CDMXMLAttribute const* attribute) {
  return attribute->getPrevSibling();
}

CDMXMLElement* CDMXMLElement::getFirstChildElem() const {
  return childElements.empty() ? nullptr : childElements.front();
}

CDMXMLElement* CDMXMLElement::getNextChildElem(CDMXMLElement const* element) {
  return element->getNextSibling();
}

CDMXMLElement* CDMXMLElement::getPrevChildElem(CDMXMLElement const* element) {
  return element->getPrevSibling();
}

CDMXMLAttribute* CDMXMLElement::getAttribute(std::string_view wanted) const {
  auto found = std::find_if(attributes.begin(), attributes.end(),
                            [&](CDMXMLAttribute const* each) { return each->name == wanted; });
  return found == attributes.end() ? nullptr : *found;
}

void CDMXMLElement::findElement(void* key, Match match, std::vector<CDMXMLElement*>& found,
                                bool recurse) {
  if (match == nullptr) return;
  if (!recurse) {
    for (CDMXMLElement* each = this; each != nullptr; each = each->getNextSibling()) {
      if (CDMXMLElement* result = match(each, key)) found.push_back(result);
    }
    return;
  }
  std::vector<CDMXMLElement*> pending{this};
  while (!pending.empty()) {
    CDMXMLElement* each = pending.back();
    pending.pop_back();
    if (CDMXMLElement* result = match(each, key)) found.push_back(result);
    pending.insert(pending.end(), each->childElements.rbegin(), each->childElements.rend());
  }
}

CDMDOMFormatTarget* CDMXMLElement::getFormatTarget() const {
  return m_formatter == nullptr ? nullptr : &m_formatter->target();
}

CDMXMLElement const* CDMXMLElement::getNamespaceScope() const {
  // The climb ends at an element that declares a namespace or has the result
  // cached. All elements below it cache the result, too, so that the cost stays
  // linear in deep documents.
  CDMXMLElement const* at = this;
  CDMXMLElement const* scope = nullptr;
  for (; at != nullptr; at = at->parent) {
    if (at->namespaceScopeKnown) {
      scope = at->namespaceScope;
      break;
    }
    if (std::any_of(at->attributes.begin(), at->attributes.end(), declaresNamespace)) {
      scope = at;
      break;
    }
  }
  for (CDMXMLElement const* passed = this; passed != at; passed = passed->parent) {
    passed->namespaceScope = scope;
    passed->namespaceScopeKnown = true;
  }
  return scope;
}

}  // namespace fdmorph
