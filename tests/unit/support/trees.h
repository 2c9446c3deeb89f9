// Document trees, written as values.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "xml/node_store.h"

namespace fdmorph {

/// An element with its attributes, in this order, its child elements, and its text.
struct Tree {
  std::string name;
  std::vector<std::pair<std::string, std::string>> attributes = {};
  std::vector<Tree> children = {};
  std::string value = {};
};

inline CDMXMLElement* build(CDMXMLNodeStore& store, Tree const& tree,
                            CDMXMLElement* parent = nullptr) {
  CDMXMLElement* element = store.newElement();
  element->name = tree.name;
  element->value = tree.value;
  element->setParent(parent);
  for (auto const& [name, value] : tree.attributes) {
    CDMXMLAttribute* attribute = store.newAttribute();
    attribute->name = name;
    attribute->value = value;
    attribute->setParent(element);
    element->addAttribute(attribute);
  }
  for (Tree const& child : tree.children) {
    element->addChildElement(build(store, child, element));
  }
  return element;
}

/// The top node of a document with the root element `tree`.
inline CDMXMLElement* buildDocument(CDMXMLNodeStore& store, Tree const& tree) {
  CDMXMLElement* top = store.newElement();
  top->addChildElement(build(store, tree, top));
  return top;
}

/// The first element, from `element` down, whose `name` attribute is `name`.
inline CDMXMLElement* named(CDMXMLElement* element, std::string_view name) {
  CDMXMLAttribute const* attribute = element->getAttribute("name");
  if (attribute != nullptr && attribute->value == name) return element;
  for (CDMXMLElement* child : element->getChildElements()) {
    if (CDMXMLElement* found = named(child, name)) return found;
  }
  return nullptr;
}

/// The `name` attributes of `elements`, for comparison with a list of texts.
template <typename Elements>
std::vector<std::string> namesOf(Elements const& elements) {
  std::vector<std::string> names;
  for (CDMXMLElement const* element : elements) {
    CDMXMLAttribute const* name = element->getAttribute("name");
    names.push_back(name == nullptr ? std::string() : name->value);
  }
  return names;
}

}  // namespace fdmorph
