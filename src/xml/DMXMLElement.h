// The tool's own document tree. Every XML document that is read becomes one
// such tree right after the parse, and all generators work on it alone. An
// element knows its attributes and child elements, both as a list and through
// sibling links; comments and the like don't exist here.
//
// Nodes belong to a CDMXMLNodeStore; all pointers between them only look.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fdmorph {

class CDMDOMFormatTarget;
class CDMXMLElement;
class XmlFormatter;

enum class NodeType { element = 1, attribute = 2 };

class CDMXMLNode {
 public:
  explicit CDMXMLNode(NodeType type) : nodeType(type) {}

  /// The part of `name` before its first colon; empty without a colon.
  static std::string_view getNameQualifier(std::string_view name);

  /// The part of `name` after its first colon; all of it without a colon.
  static std::string_view getNonQualifiedName(std::string_view name);

  NodeType nodeType;
  std::string name;   ///< as the document has it, prefix included
  std::string value;  ///< an attribute's value, an element's last text
};

/// Whether an attribute of this name declares a namespace or the target
/// namespace.
bool isNamespaceDeclaration(std::string_view attributeName);

class CDMXMLAttribute : public CDMXMLNode {
 public:
  CDMXMLAttribute() : CDMXMLNode(NodeType::attribute) {}

  void setParent(CDMXMLElement* element) { parent = element; }
  CDMXMLElement* getParent() const { return parent; }
  CDMXMLAttribute* getPrevSibling() const { return prevSibling; }
  CDMXMLAttribute* getNextSibling() const { return nextSibling; }
  void setPrevSibling(CDMXMLAttribute* attribute) { prevSibling = attribute; }
  void setNextSibling(CDMXMLAttribute* attribute) { nextSibling = attribute; }

 private:
  CDMXMLElement* parent = nullptr;
  CDMXMLAttribute* prevSibling = nullptr;
  CDMXMLAttribute* nextSibling = nullptr;
};

class CDMXMLElement : public CDMXMLNode {
 public:
  /// Returns the element to record for a candidate, or null.
  using Match = CDMXMLElement* (*)(CDMXMLElement* candidate, void* key);

  CDMXMLElement() : CDMXMLNode(NodeType::element) {}

  void setParent(CDMXMLElement* element) { parent = element; }
  CDMXMLElement* getParent() const { return parent; }
  CDMXMLElement* getPrevSibling() const { return prevSibling; }
  CDMXMLElement* getNextSibling() const { return nextSibling; }
  void setPrevSibling(CDMXMLElement* element) { prevSibling = element; }
  void setNextSibling(CDMXMLElement* element) { nextSibling = element; }
  void setFormatter(XmlFormatter* treeFormatter) { formatter = treeFormatter; }

  /// True when this element has a parent (not: when it is one).
  bool isParent() const { return parent != nullptr; }

  /// Appends an attribute and links it to the one before. An attribute may
  /// stand in the lists of several elements; its links are those of the last.
  void addAttribute(CDMXMLAttribute* attribute);

  /// Appends a child and links it to the one before; it becomes the last of
  /// the chain wherever it came from. Its parent is the caller's business.
  void addChildElement(CDMXMLElement* child);

  CDMXMLAttribute* getFirstAttr() const;
  static CDMXMLAttribute* getNextAttr(CDMXMLAttribute const* attribute);
  static CDMXMLAttribute* getPrevAttr(CDMXMLAttribute const* attribute);
  CDMXMLElement* getFirstChildElem() const;
  static CDMXMLElement* getNextChildElem(CDMXMLElement const* element);
  static CDMXMLElement* getPrevChildElem(CDMXMLElement const* element);

  std::vector<CDMXMLAttribute*> const& getAttributes() const { return attributes; }
  std::vector<CDMXMLElement*> const& getChildElements() const { return childElements; }

  /// The first attribute whose name equals `wanted` byte for byte, prefix
  /// included; null if there is none.
  CDMXMLAttribute* getAttribute(std::string_view wanted) const;

  /// Appends to `found` what `match` returns for this element and, with
  /// `recurse`, for everything below it (parents first), otherwise for its
  /// following siblings. A null `match` does nothing.
  void findElement(void* key, Match match, std::vector<CDMXMLElement*>& found, bool recurse);

  /// The formatter and the format target of the tree that a parser built; null
  /// in other trees. They live as long as the nodes, in the same store.
  XmlFormatter* getXMLFormatter() const { return formatter; }
  CDMDOMFormatTarget* getFormatTarget() const;

  /// The nearest element, this one or above, that declares a namespace or a
  /// target namespace; null if none does. The answer is kept, so it may be
  /// asked for only once the document is complete.
  CDMXMLElement const* getNamespaceScope() const;

 private:
  CDMXMLElement* parent = nullptr;
  CDMXMLElement* prevSibling = nullptr;
  CDMXMLElement* nextSibling = nullptr;
  std::vector<CDMXMLAttribute*> attributes;
  std::vector<CDMXMLElement*> childElements;
  XmlFormatter* formatter = nullptr;
  mutable CDMXMLElement const* namespaceScope = nullptr;
  mutable bool namespaceScopeKnown = false;
};

}  // namespace fdmorph
